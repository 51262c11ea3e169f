// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Prints what Qt's meta-object system knows of the classes that a library exports: signals with their indices, slots
// and other methods, properties, enumerations with their values. It loads the library and does not link it.
//
//   read_meta_objects libHalvex.so <mangled name of a staticMetaObject>...

#include <QLibrary>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>

#include <cstdio>

namespace {

void printMethods(const QMetaObject& object)
{
    for (int index = object.methodOffset(); index < object.methodCount(); ++index) {
        const QMetaMethod method = object.method(index);
        const bool isSignal = method.methodType() == QMetaMethod::Signal;
        std::printf("  %s %s", isSignal ? "signal" : "method", method.methodSignature().constData());
        if (isSignal)
            std::printf(" at %d", index - object.methodOffset());
        std::printf("\n");
    }
}

void print(const QMetaObject& object)
{
    std::printf("class %s : %s\n", object.className(), object.superClass() ? object.superClass()->className() : "");
    printMethods(object);
    for (int index = object.propertyOffset(); index < object.propertyCount(); ++index) {
        const QMetaProperty property = object.property(index);
        std::printf("  property %s of %s%s\n", property.name(), property.typeName(),
                    property.isWritable() ? "" : ", read only");
    }
    for (int index = object.enumeratorOffset(); index < object.enumeratorCount(); ++index) {
        const QMetaEnum enumeration = object.enumerator(index);
        for (int key = 0; key < enumeration.keyCount(); ++key)
            std::printf("  value %s::%s = %d\n", enumeration.name(), enumeration.key(key), enumeration.value(key));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: read_meta_objects LIBRARY SYMBOL...\n", stderr);
        return 2;
    }
    QLibrary library(QString::fromLocal8Bit(argv[1]));
    for (int i = 2; i < argc; ++i) {
        const auto* const object = reinterpret_cast<const QMetaObject*>(library.resolve(argv[i]));
        if (!object) {
            std::fprintf(stderr, "%s: %s\n", argv[i], qPrintable(library.errorString()));
            return 1;
        }
        print(*object);
    }
    return 0;
}
