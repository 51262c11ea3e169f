// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Runs a fuzz target over files, with any compiler: each file and each file of a folder that the command line names.

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" {
int LLVMFuzzerInitialize(int* argc, char*** argv);
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
}

namespace {

bool runFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qUtf8Printable(path));
        return false;
    }
    const QByteArray bytes = file.readAll();
    std::printf("%s\n", qUtf8Printable(path)); // the last line before an abort says which
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size()));
    return true;
}

QStringList filesIn(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    for (QDirIterator entry(path, QDir::Files); entry.hasNext();)
        files << entry.next();
    files.sort();
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        const QStringList files = filesIn(QString::fromLocal8Bit(argv[i]));
        for (const QString& file : files) {
            if (!runFile(file))
                return 1;
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
