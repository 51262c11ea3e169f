// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CImageData.h"

#include <Halvex/models/ASinkNodeDataModel.h>

#include <QSharedPointer>
#include <QString>

namespace Host {

/**
 * A sink whose images are shown. It keeps the newest one and never a queue: who shows it asks for image() when there is
 * time to draw.
 *
 * \code
 * connect(&model, &CViewModel::imageChanged, view, [&] { view->setImage(model.image()); });
 * \endcode
 *
 * Data that is no image, and an image that cannot be shown (neither grey nor colour, neither 8 nor 16 bits), leave it
 * without an image and with a validation message. Empty data leaves it without one, too: nothing is shown that is no
 * longer there. All of it goes on to the listeners of the data flow proxy when it comes.
 *
 * Settings: the name, which people read on the node and on the dock. A document keeps it as "property": {"view_name"}.
 *
 * Threads: as every model.
 */
class CViewModel : public Plugin::Halvex::ASinkNodeDataModel
{
    Q_OBJECT
    Q_PROPERTY(QString viewName READ viewName WRITE setViewName NOTIFY viewNameChanged)
    Q_CLASSINFO("viewName.help", "What stands above the image.")

public:
    CViewModel() = default;
    ~CViewModel() override;

    /// "Image View"
    static QString modelName();

    QString viewName() const { return m_viewName; }
    void setViewName(const QString& name);

    /// The newest; null before the first and after empty data. Shared: a camera's buffer may be held with it.
    QSharedPointer<const CImageData> image() const { return m_image; }

    /// Images that came, shown or not.
    quint64 delivered() const { return m_delivered; }

    QString caption() override;
    QString name() override { return modelName(); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::ENodeValidationState validationState() const override;
    QString validationMessage() const override { return m_error; }
    bool isUnique() override { return false; }

    /// What ASinkNodeDataModel saves, and "property": {"view_name": viewName()} for a view that has a name.
    QJsonObject save() const override;

    /// Reads what save() writes. A name that is missing or no text changes nothing.
    void restore(const QJsonObject& json) override;

Q_SIGNALS:
    /// There is another image(), or none any more. Once for each that comes, before the proxy's listeners hear of it.
    void imageChanged();

    /// The name has changed, and with it caption(). Once for each change.
    void viewNameChanged();

private:
    QString m_viewName;
    QString m_error;
    QSharedPointer<const CImageData> m_image;
    quint64 m_delivered = 0;
};

} // namespace Host
