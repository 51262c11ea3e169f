// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/Preview.h"

#include "host/models/CGrabResultConverter.h"
#include "host/models/CImageData.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <opencv2/imgproc.hpp>

namespace Host {

using namespace Plugin::Halvex;

QImage previewOf(const Veltra::CGrabResultPtr& frame, const QSize& most)
{
    const CNodeDataPtr data = CGrabResultConverter()(QSharedPointer<CVeltraGrabResultData>::create(frame));
    const auto image = data.dynamicCast<CImageData>();
    if (!image || image->image().empty())
        return {};
    const QSize size =
        QSize(image->image().cols, image->image().rows).scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
    cv::Mat small;
    cv::resize(image->image(), small, cv::Size(size.width(), size.height()), 0, 0, cv::INTER_AREA);
    if (small.depth() == CV_16U)
        small.convertTo(small, CV_8U, 1.0 / 257.0);
    const bool isGrey = small.channels() == 1;
    const QImage view(small.data, small.cols, small.rows, int(small.step),
                      isGrey ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    return isGrey ? view.copy() : view.rgbSwapped(); // either way a copy
}

} // namespace Host
