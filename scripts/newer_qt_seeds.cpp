// For scripts/qt512.sh, which must find each line that says "newer", and no other.

#include <QtCore/QtCore>
#include <QtTest/QtTest>

template <typename T>
QVector<T> toVector(const QSet<T>& values)
{
    return QVector<T>(values.begin(), values.end()); // newer: a constructor, in an instance of a template
}

void useSeeds(QThread& thread, QString text, QStringView view)
{
    struct SSeed
    {
        Q_DISABLE_COPY_MOVE(SSeed) // newer: a macro
    };
    QRecursiveMutex mutex; // newer: a class
    QTextStream stream(&text);
    stream << Qt::endl << toVector(QSet<int>{1}).size(); // newer: a function in a namespace
    text.split(',', Qt::SkipEmptyParts);                 // newer: an enum value
    text.contains(view);                                 // newer: one of several overloads
    text.arg(text, text).split(',');
    QAtomicInt(1).loadRelaxed();        // newer: a member of a base that is not documented
    QStringList{text}.join(view);       // newer: the same, of a specialization
    QSignalSpy(&thread, QMetaMethod()); // newer: a class of Qt Test
    QSignalSpy(&thread, &QThread::finished);
    thread.wait();
}
