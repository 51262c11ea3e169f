// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CImageFiles.h"

#include "host/base/Shown.h"

#include <opencv2/imgcodecs.hpp>

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

#include <glob.h>

namespace Host {

namespace {

QStringList filesIn(const QString& folder)
{
    const QDir dir(folder);
    QStringList files;
    const QStringList names = dir.entryList(CImageFiles::namePatterns(), QDir::Files); // whatever the case
    for (const QString& name : names)
        files << dir.filePath(name);
    return files;
}

QStringList matches(const QString& pattern)
{
    glob_t found{};
    QStringList files;
    if (glob(QFile::encodeName(pattern).constData(), 0, nullptr, &found) == 0) {
        for (std::size_t i = 0; i < found.gl_pathc; ++i)
            files << QFile::decodeName(found.gl_pathv[i]);
    }
    globfree(&found);
    return files;
}

void sortByNumber(QStringList* files)
{
    QCollator byNumber{QLocale(QLocale::English)}; // that of a machine may know no numbers
    byNumber.setNumericMode(true);
    std::stable_sort(files->begin(), files->end(), byNumber);
}

cv::Mat readImage(const QString& file)
{
    try {
        return cv::imread(QFile::encodeName(file).toStdString(), cv::IMREAD_UNCHANGED);
    } catch (const cv::Exception&) {
        return {};
    }
}

QString reasonFor(const QString& file)
{
    QFile in(file);
    if (QFileInfo(file).isDir())
        return CImageFiles::tr("it is a folder");
    return in.open(QIODevice::ReadOnly) ? CImageFiles::tr("no image, or a broken one") : in.errorString();
}

QString emptyText(const QString& place)
{
    if (QFileInfo(place).isDir())
        return CImageFiles::tr("no image in the folder %1; it takes %2")
            .arg(shown(place), CImageFiles::namePatterns().join(QStringLiteral(", ")));
    const bool isPattern =
        std::any_of(place.begin(), place.end(), [](QChar letter) { return QStringLiteral("*?[").contains(letter); });
    return isPattern ? CImageFiles::tr("no file matches %1").arg(shown(place))
                     : CImageFiles::tr("no such folder or file: %1").arg(shown(place));
}

} // namespace

QStringList CImageFiles::namePatterns()
{
    QStringList names;
    for (const char* suffix : {"bmp", "jpeg", "jpg", "jp2", "pbm", "pgm", "png", "pnm", "ppm", "tif", "tiff", "webp"})
        names << QStringLiteral("*.%1").arg(QLatin1String(suffix));
    return names;
}

QStringList CImageFiles::find(const QString& place)
{
    return QFileInfo(place).isDir() ? filesIn(place) : matches(place);
}

std::unique_ptr<CImageFiles> CImageFiles::open(const QString& place, QString* error)
{
    silenceOpenCv();
    QStringList files = find(place);
    if (files.isEmpty()) {
        *error = emptyText(place);
        return nullptr;
    }
    sortByNumber(&files);
    return std::unique_ptr<CImageFiles>(new CImageFiles(place, files));
}

CImageFiles::CImageFiles(QString place, QStringList files)
    : m_place(std::move(place))
    , m_files(std::move(files))
{
}

QString CImageFiles::description() const
{
    if (m_files.size() == 1)
        return tr("image %1", "one that stands in for a camera").arg(shown(m_files.first()));
    return tr("%1 images of %2").arg(m_files.size()).arg(shown(m_place));
}

IImageReader::ERead CImageFiles::read(cv::Mat* image, QString* error)
{
    if (m_next == m_files.size())
        return ERead::End;
    const QString& file = m_files.at(m_next++);
    *image = readImage(file);
    if (!image->empty())
        return ERead::Image;
    *error = tr("cannot read %1: %2").arg(shown(file), reasonFor(file));
    return ERead::Failed;
}

bool CImageFiles::rewind(QString*)
{
    m_next = 0;
    return true;
}

} // namespace Host
