#pragma once

#include <Halvex/Halvex.h>

/**
 * Makes frames brighter or darker: takes the grab results of a camera, and gives new ones with the same size and
 * number.
 *
 * Frames of another pixel format than Mono8 go on as they are, and the node shows a warning. Empty data, and data that
 * is no grab result, make the output empty.
 *
 * The setting "brightness" is a property, so hosts show and change it, and documents keep it. It applies from the next
 * frame on.
 *
 * Threads: the graph's. What takes longer than a millisecond derives from AWorkerNodeDataModel, and works elsewhere.
 */
class C__Class__Model : public Plugin::Halvex::ANodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(int brightness READ brightness WRITE setBrightness NOTIFY brightnessChanged)
    Q_CLASSINFO("brightness.range", "-255..255")
    Q_CLASSINFO("brightness.help", "What is added to each pixel.")

public:
    QString caption() override { return tr("__Title__"); }
    /// The key in documents: for ever. Not a QStringLiteral(), whose text would go with the plugin.
    QString name() override { return QString::fromLatin1("__Title__"); }
    bool isUnique() override { return false; }
    unsigned int nPorts(Plugin::Halvex::ENodePortType side) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType side,
                                           Plugin::Halvex::NodePortIndex index) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override;

    /// Warning while the last frame could not be changed.
    Plugin::Halvex::ENodeValidationState validationState() const override;
    QString validationMessage() const override { return m_warning; }

    /// What is added to each pixel; 0 at first.
    int brightness() const { return m_brightness; }
    /// Emits brightnessChanged() if this is a change. What is not within -255 to 255 is ignored.
    void setBrightness(int brightness);

    /// What ANodeDataModel saves, and "property": {"brightness": brightness()}.
    QJsonObject save() const override;
    /// Reads what save() writes. A setting that is missing or makes no sense stays as it is.
    void restore(const QJsonObject& json) override;

Q_SIGNALS:
    /// setBrightness() has changed the setting.
    void brightnessChanged();

private:
    int m_brightness = 0;
    QString m_warning;
    Plugin::Halvex::CNodeDataPtr m_output;
};
