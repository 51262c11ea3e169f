// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/ANodeDataModel.h>

#include <opencv2/core.hpp>

#include <QString>

namespace Host {

/**
 * What image filters have in common: one image in, one image out, computed at once.
 *
 * A subclass gives its names and process(). Empty data, data that is no image and an image that process() cannot
 * work on clear the output and announce dataInvalidated(); the reason of the last is the validation message. The
 * output carries the frame information of the input.
 *
 * Threads: as every model.
 */
class AImageFilterModel : public Plugin::Halvex::ANodeDataModel
{
    Q_OBJECT

public:
    AImageFilterModel() = default;

    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::ENodeValidationState validationState() const override;
    QString validationMessage() const override { return m_message; }
    bool isUnique() override { return false; }

protected:
    /// The filtered image, a new one: \a image is shared with other nodes. It is not empty. May throw cv::Exception
    /// for an image that the filter has no answer to.
    virtual cv::Mat process(const cv::Mat& image) const = 0;

private:
    Plugin::Halvex::CNodeDataPtr processed(const Plugin::Halvex::CNodeDataPtr& data);

    Plugin::Halvex::CNodeDataPtr m_output;
    QString m_message;
};

} // namespace Host
