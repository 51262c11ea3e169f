// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CNumber.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <QJsonObject>

#include <functional>
#include <utility>

class CNumberModel;

/// What a CNumberModel does otherwise than it should.
struct SMisbehaviour
{
    using Model = CNumberModel;
    using Data = Plugin::Halvex::CNodeDataPtr;
    using Side = Plugin::Halvex::ENodePortType;
    using Type = Plugin::Halvex::SNodeDataType;

    std::function<void(Model&)> construct;
    std::function<void(Model&)> destroy;
    std::function<QString(const Model&)> name;
    std::function<QString(const Model&)> caption;
    std::function<unsigned int(const Model&, Side)> nPorts;
    std::function<Type(const Model&, Side, int index)> dataType;
    std::function<void(const QString& call)> beforePortIsAsked; // for what a model seldom overrides
    std::function<void(Model&, const Data&, int index)> setInData;
    std::function<Data(Model&, int index)> outData;
    std::function<QString(const Model&)> validationMessage;
    std::function<QJsonObject(const Model&, QJsonObject saved)> save;
    std::function<void(Model&, const QJsonObject&)> restore;
    std::function<void(Model&, const QString&)> setLabel;
};

/**
 * A sound model, which multiplies numbers by its gain, unless it is told to misbehave. What misbehaves may call what
 * does not: \c multiply() is the sound setInData(), and so on.
 */
class CNumberModel : public Plugin::Halvex::CNodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(int gain READ gain WRITE setGain NOTIFY gainChanged)
    Q_PROPERTY(QString label READ label WRITE setLabel NOTIFY labelChanged)

public:
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using ENodePortType = Plugin::Halvex::ENodePortType;
    using SNodeDataType = Plugin::Halvex::SNodeDataType;

    explicit CNumberModel(SMisbehaviour misbehaviour = {})
        : m_misbehaviour(std::move(misbehaviour))
    {
        if (m_misbehaviour.construct)
            m_misbehaviour.construct(*this);
    }
    ~CNumberModel() override
    {
        if (m_misbehaviour.destroy)
            m_misbehaviour.destroy(*this);
    }

    QString name() override { return m_misbehaviour.name ? m_misbehaviour.name(*this) : QStringLiteral("Number"); }
    QString caption() override
    {
        return m_misbehaviour.caption ? m_misbehaviour.caption(*this) : QStringLiteral("Number");
    }
    unsigned int nPorts(ENodePortType side) const override
    {
        if (m_misbehaviour.nPorts)
            return m_misbehaviour.nPorts(*this, side);
        return side == ENodePortType::None ? 0 : 1;
    }
    SNodeDataType dataType(ENodePortType side, int index) const override
    {
        return m_misbehaviour.dataType ? m_misbehaviour.dataType(*this, side, index) : CNumber::dataType();
    }
    QString portCaption(ENodePortType side, int index) const override
    {
        beforePortIsAsked(QStringLiteral("caption"));
        return CNodeDataModel::portCaption(side, index);
    }
    bool portCaptionVisible(ENodePortType side, int index) const override
    {
        beforePortIsAsked(QStringLiteral("visibility"));
        return CNodeDataModel::portCaptionVisible(side, index);
    }
    EConnectionPolicy portOutConnectionPolicy(int index) const override
    {
        beforePortIsAsked(QStringLiteral("policy"));
        return CNodeDataModel::portOutConnectionPolicy(index);
    }
    void setInData(CNodeDataPtr data, int index) override
    {
        if (m_misbehaviour.setInData)
            m_misbehaviour.setInData(*this, data, index);
        else
            multiply(data, index);
    }
    CNodeDataPtr outData(int index) override
    {
        if (m_misbehaviour.outData)
            return m_misbehaviour.outData(*this, index);
        return index == 0 ? output : CNodeDataPtr();
    }
    Plugin::Halvex::ENodeValidationState validationState() const override
    {
        return isForeign ? Plugin::Halvex::ENodeValidationState::Error : Plugin::Halvex::ENodeValidationState::Valid;
    }
    QString validationMessage() const override
    {
        if (m_misbehaviour.validationMessage)
            return m_misbehaviour.validationMessage(*this);
        return isForeign ? QStringLiteral("This is no number.") : QString();
    }
    QJsonObject save() const override
    {
        QJsonObject json = CNodeDataModel::save();
        json.insert(QStringLiteral("property"),
                    QJsonObject{{QStringLiteral("gain"), m_gain}, {QStringLiteral("label"), m_label}});
        return m_misbehaviour.save ? m_misbehaviour.save(*this, json) : json;
    }
    void restore(const QJsonObject& json) override
    {
        if (m_misbehaviour.restore)
            m_misbehaviour.restore(*this, json);
        else
            readSettings(json);
    }

    int gain() const { return m_gain; }
    void setGain(int gain)
    {
        if (gain == m_gain)
            return;
        m_gain = gain;
        Q_EMIT gainChanged();
    }

    QString label() const { return m_label; }
    void setLabel(const QString& label)
    {
        if (m_misbehaviour.setLabel)
            m_misbehaviour.setLabel(*this, label);
        else
            changeLabel(label);
    }

    void multiply(const CNodeDataPtr& data, int index)
    {
        if (index != 0)
            return;
        const auto number = data.dynamicCast<CNumber>();
        isForeign = data && !number;
        hadNumber = hadNumber || number;
        output = number ? makeNumber(number->value() * m_gain + offset) : CNodeDataPtr();
        if (number)
            Q_EMIT dataUpdated(0);
        else
            Q_EMIT dataInvalidated(0);
    }
    void readSettings(const QJsonObject& json)
    {
        const QJsonObject settings = json.value(QStringLiteral("property")).toObject();
        setGain(settings.value(QStringLiteral("gain")).toInt(m_gain));
        setLabel(settings.value(QStringLiteral("label")).toString(m_label));
    }
    void changeLabel(const QString& label)
    {
        if (label == m_label)
            return;
        storeLabel(label);
        Q_EMIT labelChanged();
    }
    void storeLabel(const QString& label) { m_label = label; }

    // For what misbehaves.
    CNodeDataPtr output;
    bool hadNumber = false;
    bool isForeign = false;
    int offset = 0;
    int count = 0;

Q_SIGNALS:
    void gainChanged();
    void labelChanged();

private:
    void beforePortIsAsked(const QString& call) const
    {
        if (m_misbehaviour.beforePortIsAsked)
            m_misbehaviour.beforePortIsAsked(call);
    }

    const SMisbehaviour m_misbehaviour;
    int m_gain = 1;
    QString m_label = QStringLiteral("none");
};
