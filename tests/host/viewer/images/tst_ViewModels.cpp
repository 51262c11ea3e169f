// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/ViewModels.h"

#include "host/models/IHostModels.h"
#include "host/plugins/CHostServices.h"
#include "host/viewer/images/CViewModel.h"
#include "viewer/TestView.h"

#include <Halvex/service/CVeltraGrabResultData.h>
#include <Halvex/service/INodeService.h>

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

// What the plugin with the host's models makes of an image, as a node would get it.
CNodeDataPtr filtered(INodeService& service, const QString& filter, const CNodeDataPtr& image)
{
    const auto model = service.createModel(filter);
    CNodeDataPtr result;
    QObject::connect(model.get(), &CNodeDataModel::dataUpdated, model.get(), [&] { result = model->outData(0); });
    model->setInData(image, 0);
    return QTest::qWaitFor([&] { return bool(result); }) ? result : CNodeDataPtr();
}

} // namespace

class tst_ViewModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_services = std::make_unique<CHostServices>(QStringLiteral(HOST_PLUGINS));
        QCOMPARE(m_services->load(), QString());
        registerViewModels(m_services->nodes(), m_services->models());
    }
    void cleanupTestCase() { m_services.reset(); }
    void viewIsMadeByItsName();
    void imagesOfThePluginAreShown();
    void cameraFramesAreConverted();

private:
    std::unique_ptr<CHostServices> m_services;
};

void tst_ViewModels::viewIsMadeByItsName()
{
    const auto model = m_services->nodes().createModel(QStringLiteral("Image View"));
    QVERIFY(qobject_cast<CViewModel*>(model.get()));
    QCOMPARE(m_services->nodes().registry()->registeredModelsCategoryAssociation().at("Image View"),
             QStringLiteral("Sinks"));
}

void tst_ViewModels::imagesOfThePluginAreShown()
{
    // The plugin has a CImageData of its own, the same class in another library.
    CViewModel view;
    view.setInData(filtered(m_services->nodes(), QStringLiteral("Blur"), viewImage(rampImage(), 8, 7)), 0);
    QVERIFY(view.image());
    QCOMPARE(view.image()->info().frameNumber, quint64(7));
    QCOMPARE(view.image()->image().cols, 200);
}

void tst_ViewModels::cameraFramesAreConverted()
{
    const NodeDataConverter convert =
        m_services->nodes().registry()->getTypeConverter(CVeltraGrabResultData().type(), CImageData::dataType());
    QVERIFY(convert);
    const auto pixels = std::make_shared<std::vector<quint16>>(64 * 48, quint16(3071));
    Veltra::SGrabResult frame;
    frame.pixels = reinterpret_cast<const std::byte*>(pixels->data());
    frame.size = 2 * pixels->size();
    frame.width = 64;
    frame.height = 48;
    frame.stride = 128;
    frame.pixelFormat = QStringLiteral("Mono12");
    frame.owner = pixels;
    CViewModel view;
    view.setInData(convert(QSharedPointer<CVeltraGrabResultData>::create(Veltra::CGrabResultPtr(frame))), 0);
    QVERIFY(view.image());
    QCOMPARE(view.image()->info().bits, 12);
}

QTEST_GUILESS_MAIN(tst_ViewModels)
#include "tst_ViewModels.moc"
