// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What the samples take for granted of a plugin author's own classes. Nothing of it is ever defined or run. The
// compiler is told to put it in front of each sample, so that it needs no guard.

#include <Halvex/Halvex.h>

#include <QCoreApplication>
#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPluginLoader>

#include <memory>

using namespace Plugin::Halvex;

class CNumberData : public CNodeData
{
public:
    explicit CNumberData(int value = 0);
    SNodeDataType type() const override;
    int value() const;
};

class CImageData : public CNodeData
{
public:
    SNodeDataType type() const override;
};

class CFrameData : public CNodeData
{
public:
    explicit CFrameData(const Veltra::CGrabResultPtr& frame = {});
    SNodeDataType type() const override;
};

/// A model with the name that is asked for, on top of any model class.
template <typename Base>
class CSampleModel : public Base
{
public:
    using Base::Base;
    QString caption() override;
    QString name() override;
    unsigned int nPorts(ENodePortType side) const override;
    SNodeDataType dataType(ENodePortType side, NodePortIndex index) const override;
    void setInData(CNodeDataPtr data, NodePortIndex index) override;
};

class CBlurModel : public CSampleModel<CNodeDataModel>
{
public:
    CNodeDataPtr outData(NodePortIndex index) override;
};

class CWindowModel : public CSampleModel<ASinkNodeDataModel>
{
public:
    CNodeDataPtr outData(NodePortIndex index) override;
    bool isUnique() override;
};

class CDisplayModel : public CWindowModel
{
public:
    void setInData(CNodeDataPtr data, NodePortIndex index) override;
};

class CWindow : public QObject
{
public:
    void onFrame(const CNodeDataPtr& data);
};

class CDisplay : public QObject
{
public:
    void show(const CNodeDataPtr& data);
};

CNodeDataPtr toImage(CNodeDataPtr data);
