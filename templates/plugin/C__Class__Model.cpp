#include "C__Class__Model.h"

#include <algorithm>
#include <vector>

using namespace Plugin::Halvex;

namespace {

// A new frame: the one that came is shared with other nodes. Nothing in here knows the graph.
Veltra::CGrabResultPtr brightened(const Veltra::SGrabResult& frame, int brightness)
{
    const auto width = std::size_t(frame.width);
    const auto height = std::size_t(frame.height);
    const auto pixels = std::make_shared<std::vector<std::byte>>(width * height);
    for (std::size_t y = 0; y < height; ++y) {
        const std::byte* const row = frame.pixels + y * std::size_t(frame.stride);
        std::transform(row, row + width, pixels->begin() + std::ptrdiff_t(y * width), [brightness](std::byte pixel) {
            return std::byte(std::clamp(std::to_integer<int>(pixel) + brightness, 0, 255));
        });
    }

    Veltra::SGrabResult result = frame;
    result.pixels = pixels->data();
    result.size = pixels->size();
    result.stride = frame.width;
    result.owner = pixels;
    return Veltra::CGrabResultPtr(std::move(result));
}

} // namespace

unsigned int C__Class__Model::nPorts(ENodePortType side) const
{
    return side == ENodePortType::None ? 0 : 1;
}

SNodeDataType C__Class__Model::dataType(ENodePortType, NodePortIndex) const
{
    return CVeltraGrabResultData().type();
}

void C__Class__Model::setInData(CNodeDataPtr data, NodePortIndex)
{
    const auto input = data.dynamicCast<CVeltraGrabResultData>(); // null for empty data, and for data of other types
    m_output.reset();
    m_warning.clear();
    if (!input || !input->grabResult()) {
        Q_EMIT dataInvalidated(0);
        return;
    }

    const Veltra::SGrabResult& frame = *input->grabResult();
    if (frame.pixelFormat == QLatin1String("Mono8")) {
        m_output = QSharedPointer<CVeltraGrabResultData>::create(brightened(frame, m_brightness));
    } else {
        m_output = data;
        m_warning = tr("Frames of %1 go on as they are").arg(frame.pixelFormat);
    }
    Q_EMIT dataUpdated(0); // stored first: outData() is read at once
}

CNodeDataPtr C__Class__Model::outData(NodePortIndex)
{
    return m_output;
}

ENodeValidationState C__Class__Model::validationState() const
{
    return m_warning.isEmpty() ? ENodeValidationState::Valid : ENodeValidationState::Warning;
}

void C__Class__Model::setBrightness(int brightness)
{
    if (brightness < -255 || brightness > 255 || brightness == m_brightness)
        return;
    m_brightness = brightness;
    Q_EMIT brightnessChanged();
}

QJsonObject C__Class__Model::save() const
{
    QJsonObject json = ANodeDataModel::save();
    json.insert(QString(DocumentKeys::property), QJsonObject{{QString::fromLatin1("brightness"), m_brightness}});
    return json;
}

void C__Class__Model::restore(const QJsonObject& json)
{
    const QJsonObject settings = json.value(DocumentKeys::property).toObject();
    setBrightness(settings.value(QLatin1String("brightness")).toInt(m_brightness));
}
