// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CWindowUser.h"

#include "graph/CGraphUser.h"
#include "support/FreshSeed.h"

#include <cstdio>

/// The whole window stays sound whatever a person does. HALVEX_USER_STEPS asks for more steps than a test makes.
class tst_WindowUser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWindowStaysSound();
};

void tst_WindowUser::theWindowStaysSound()
{
    constexpr int stepsBetweenUndos = 100;
    constexpr int rememberedSteps = 12;
    const unsigned int seed = freshSeed();
    const int steps = userSteps(1000);
    CWindowUser user(seed);
    QVERIFY(user.plugCameraIn());
    QString wrong;
    QStringList done; // what came before a fault
    int step = 0;
    QEventLoop loop; // as in the program: what is to be deleted later is
    QTimer timer;
    connect(&timer, &QTimer::timeout, &loop, [&] {
        done << QString::fromLatin1(user.act());
        if (done.size() > rememberedSteps)
            done.removeFirst();
        wrong = user.wrong();
        ++step;
        if (wrong.isEmpty() && step % stepsBetweenUndos == 0)
            wrong = user.undoAndRedoAll();
        if (!wrong.isEmpty() || step == steps)
            loop.quit();
    });
    QElapsedTimer clock;
    clock.start();
    timer.start(0);
    loop.exec();
    timer.stop();
    QVERIFY2(wrong.isEmpty(), qPrintable(done.join(QStringLiteral(", ")) + QStringLiteral(": ") + wrong));
    std::printf("%d steps, seed %u, %.0f s\n", steps, seed, double(clock.elapsed()) / 1000.0);
}

int main(int argc, char* argv[])
{
    qputenv("QTEST_FUNCTION_TIMEOUT", "86400000"); // milliseconds; it is as long as it was asked for
    const QApplication application(argc, argv);
    tst_WindowUser test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_WindowUser.moc"
