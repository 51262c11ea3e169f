// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <opencv2/core.hpp>

#include <functional>

namespace Host {

/**
 * What image filters have in common: one image in, one image out, computed in a thread pool.
 *
 * A subclass gives its names and makeFilter(). Its settings are Qt properties; a setter
 * leaves the setting as it is when a value makes no sense, and else calls changeSetting(). Its class information tells
 * what makes sense:
 *
 * \code
 * Q_PROPERTY(int level READ level WRITE setLevel NOTIFY settingChanged)
 * Q_CLASSINFO("level.range", "0..255")
 * Q_CLASSINFO("level.help", "Grey values above it become white.")
 * \endcode
 *
 * Data that is no image, and an image that the filter cannot work on, fail
 * with a validation message. The output carries the frame information of the input.
 *
 * Unless a document says otherwise, every frame is filtered, in the order of the frames; of more than 16 that wait the
 * oldest is dropped. A filter whose result may come late works in the background: all of these together leave one core
 * free for what is recorded, and for a window.
 *
 * Threads: as every worker model.
 */
class AImageFilterModel : public Plugin::Halvex::AWorkerNodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(EPriority priority READ priority WRITE setPriority NOTIFY settingChanged)
    Q_CLASSINFO("priority.help", "Background keeps one core free for what is recorded, as is right for previews.")

public:
    enum class EPriority
    {
        Normal,    ///< In Qt's global pool.
        Background ///< In CBackgroundPool.
    };
    Q_ENUM(EPriority)

    AImageFilterModel();

    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    bool isUnique() override { return false; }

    EPriority priority() const { return m_priority; }
    void setPriority(EPriority priority);

    /// What AWorkerNodeDataModel saves, and under "property" the properties of this class and of the subclass.
    QJsonObject save() const override;

    /// Reads what save() writes. A setting that is missing or makes no sense stays as it is.
    void restore(const QJsonObject& json) override;

Q_SIGNALS:
    /// A setting of this class or of the subclass has changed. Once for each change.
    void settingChanged();

protected:
    /// Stores a setting, which applies from the next frame on.
    template <typename Value>
    void changeSetting(Value* setting, Value value)
    {
        if (*setting == value)
            return;
        *setting = value;
        renewWork();
        Q_EMIT settingChanged();
    }

    /// Makes the filtered image, a new one, of an image that is shared with other nodes and not empty. May throw
    /// cv::Exception for an image that it has no answer to. Called in several threads at once.
    using Filter = std::function<cv::Mat(const cv::Mat& image)>;

    /// The filter with a copy of the model's settings.
    virtual Filter makeFilter() const = 0;

    Work makeWork() const override;

private:
    EPriority m_priority = EPriority::Normal;
};

} // namespace Host
