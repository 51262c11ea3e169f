// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/Halvex.h>

#include <QJsonObject>

class CBrightness : public Plugin::Halvex::CNodeData
{
public:
    explicit CBrightness(double mean = 0.0)
        : m_mean(mean)
    {
    }
    static Plugin::Halvex::SNodeDataType dataType()
    {
        return {QStringLiteral("example.brightness"), QStringLiteral("Brightness")};
    }
    Plugin::Halvex::SNodeDataType type() const override { return dataType(); }
    double mean() const { return m_mean; }

private:
    double m_mean;
};

/// A model with a setting: dims what it is given.
class CDimmerModel : public Plugin::Halvex::CNodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(double share READ share WRITE setShare NOTIFY shareChanged)

public:
    QString caption() override { return QStringLiteral("Dimmer"); }
    QString name() override { return QString::fromLatin1("Example Dimmer"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType side) const override
    {
        return side == Plugin::Halvex::ENodePortType::None ? 0 : 1;
    }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType, int) const override
    {
        return CBrightness::dataType();
    }
    void setInData(Plugin::Halvex::CNodeDataPtr data, int) override
    {
        const auto brightness = data.dynamicCast<CBrightness>(); // null for empty data and for other types
        m_output = brightness ? QSharedPointer<CBrightness>::create(m_share * brightness->mean()) : nullptr;
        if (m_output)
            Q_EMIT dataUpdated(0);
        else
            Q_EMIT dataInvalidated(0);
    }
    Plugin::Halvex::CNodeDataPtr outData(int) override { return m_output; }

    double share() const { return m_share; }
    void setShare(double share)
    {
        if (!(share > 0.0 && share <= 1.0) || share == m_share)
            return;
        m_share = share;
        Q_EMIT shareChanged();
    }

    QJsonObject save() const override
    {
        QJsonObject json = CNodeDataModel::save();
        json.insert(QStringLiteral("property"), QJsonObject{{QStringLiteral("share"), m_share}});
        return json;
    }
    void restore(const QJsonObject& json) override
    {
        setShare(json.value(QStringLiteral("property")).toObject().value(QStringLiteral("share")).toDouble(m_share));
    }

Q_SIGNALS:
    void shareChanged();

private:
    double m_share = 1.0;
    QSharedPointer<CBrightness> m_output;
};

/// Brightness for the checks, and how they tell one from another.
inline Plugin::Halvex::CNodeDataPtr makeBrightness(const Plugin::Halvex::SNodeDataType& type, int number)
{
    if (type.id != CBrightness::dataType().id)
        return {};
    return QSharedPointer<CBrightness>::create(number);
}

inline QByteArray checksumOfBrightness(const Plugin::Halvex::CNodeData& data)
{
    const auto* const brightness = dynamic_cast<const CBrightness*>(&data);
    return brightness ? QByteArray::number(brightness->mean()) : QByteArray();
}
