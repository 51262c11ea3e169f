// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

struct _ArvDevice;
struct _ArvDomNode;
struct _ArvGcNode;

namespace Host {

/// A GenICam feature as the camera tells it.
struct SFeature
{
    QString category;
    QString name;
    QString type;  ///< "integer", "float", "boolean", "text", "one of", "command"; empty for others.
    QString value; ///< With its unit; empty when it cannot be read.
    QString range; ///< "1 to 512", "16 to 2048 in steps of 16" in the user's language, or the values of an enumeration;
                   ///< may be empty.
    bool isWritable = false;

    // The same for programs, such as a window with widgets.
    QString plainValue{};          ///< Without its unit; as set() takes it, but for hexadecimal numbers.
    QString unit{};                ///< Of a number; may be empty.
    QStringList choices{};         ///< Of an enumeration, those that it takes now.
    std::optional<double> least{}; ///< Of a number; none where the type alone bounds it.
    std::optional<double> most{};  ///< The same.
    double step = 1.0;             ///< Of an integer.
    QString help{};                ///< What the camera says of it, may be empty.
    bool isLocked = false;         ///< It cannot be written now, but could be at another time.
};

/**
 * The GenICam features of an open camera.
 *
 * \code
 * const QString error = CFeatures(device).set(QStringLiteral("ExposureTimeAbs"), QStringLiteral("5000"));
 * \endcode
 *
 * Threads: that of the camera's owner. The device outlives this object.
 */
class CFeatures
{
    Q_DECLARE_TR_FUNCTIONS(Host::CFeatures)

public:
    /// Once \a isGone says so, no more features are read: a camera that has gone lets each of them wait for seconds.
    explicit CFeatures(
        _ArvDevice* device, std::function<bool()> isGone = [] { return false; })
        : m_device(device)
        , m_isGone(std::move(isGone))
    {
    }

    /// In the camera's own order, category by category, each once; what the camera does not implement is left out. What
    /// can be set and stands in no category comes last: the packet size of many network cameras does.
    std::vector<SFeature> all() const;

    /// What set() would find wrong before it asks the camera. Empty when nothing is.
    QString refusalOf(const QString& name, const QString& value) const;

    /// Sets a feature, or runs a command whatever \a value says. Whole numbers are decimal, or hexadecimal with 0x.
    /// Returns what is wrong, in one line and in the user's language: a feature that is not there (with the closest
    /// names), that cannot be written now, or a value that it does not take. Empty on success.
    QString set(const QString& name, const QString& value) const;

private:
    void addOthers(_ArvDomNode* parent, QSet<QString>* seen, std::vector<SFeature>* features) const;
    void add(_ArvGcNode* node, const QString& category, QSet<QString>* seen, std::vector<SFeature>* features) const;

    _ArvDevice* const m_device;
    const std::function<bool()> m_isGone;
};

} // namespace Host
