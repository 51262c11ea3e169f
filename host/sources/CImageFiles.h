// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/IImageReader.h"

#include <QCoreApplication>
#include <QStringList>

#include <memory>

namespace Host {

/// The images of a folder, or those that match a pattern, in the order of their names: "shot 2" before "shot 10".
class CImageFiles : public IImageReader
{
    Q_DECLARE_TR_FUNCTIONS(Host::CImageFiles)

public:
    /// What images are called: "*.png"...
    static QStringList namePatterns();

    /// The images that open() would read.
    static QStringList find(const QString& place);

    /// \a place is a folder, of which every file counts that is called as images are, or a pattern as of a shell, of
    /// which every match counts. Null, with the reason in \a error, if there is none.
    static std::unique_ptr<CImageFiles> open(const QString& place, QString* error);

    QString description() const override;
    QString file() const override { return m_files.value(m_next - 1); }
    ERead read(cv::Mat* image, QString* error) override;
    bool rewind(QString* error) override;

private:
    CImageFiles(QString place, QStringList files);

    const QString m_place;
    const QStringList m_files;
    int m_next = 0;
};

} // namespace Host
