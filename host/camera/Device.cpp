// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/Device.h"

#include "host/base/ClosestWords.h"
#include "host/camera/SCameraOptions.h"

#include <QCoreApplication>

#include <arv.h>

#include <algorithm>
#include <mutex>

namespace Host {

namespace {

// A number and dots are an address; nothing on the USB bus is called so.
bool isAddress(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit() || c == QLatin1Char('.'); });
}

// The library's list of devices is one for all, and is read in several calls. A search in another thread may be under
// way when the program ends: unlike a QMutex this one needs no destructor.
std::mutex& deviceListMutex()
{
    static std::mutex mutex;
    return mutex;
}

// The library reads a device's description with tables that all devices share, and makes these without a lock.
std::mutex& openingMutex()
{
    static std::mutex mutex;
    return mutex;
}

QString protocolName(const QString& protocol)
{
    // "GigEVision", "USB3Vision"
    const QString vision = QStringLiteral("Vision");
    return protocol.endsWith(vision) ? protocol.chopped(vision.size()) + QLatin1Char(' ') + vision : protocol;
}

} // namespace

std::vector<SCameraEntry> findCameras()
{
    const std::lock_guard<std::mutex> lock(deviceListMutex());
    std::vector<SCameraEntry> cameras;
    cameras.push_back(
        {SCameraOptions().address, QStringLiteral("Aravis"), QStringLiteral("Fake"), {}, QStringLiteral("built in")});
    arv_update_device_list();
    for (unsigned int i = 0; i < arv_get_n_devices(); ++i) {
        const QString protocol = QString::fromUtf8(arv_get_device_protocol(i));
        const bool isOnTheNetwork = protocol == QLatin1String("GigEVision");
        cameras.push_back({QString::fromUtf8(isOnTheNetwork ? arv_get_device_address(i) : arv_get_device_id(i)),
                           QString::fromUtf8(arv_get_device_vendor(i)), QString::fromUtf8(arv_get_device_model(i)),
                           QString::fromUtf8(arv_get_device_serial_nbr(i)), protocolName(protocol)});
    }
    return cameras;
}

GObjectPtr<ArvDevice> openDevice(const QString& address, CGLibError* error)
{
    const std::lock_guard<std::mutex> opening(openingMutex());
    // Straight to the kind of device that is meant: the library's own look-up by name asks every interface in
    // turn, which scans the network and takes unknown names to a name server.
    const QByteArray name = address.toUtf8();
    if (SCameraOptions::isFake(address))
        return GObjectPtr<ArvDevice>(arv_fake_device_new(name.constData(), error->slot()));
#if ARAVIS_HAS_USB
    if (!isAddress(address)) {
        const std::lock_guard<std::mutex> lock(deviceListMutex());
        ArvInterface* const usb = arv_uv_interface_get_instance();
        arv_interface_update_device_list(usb);
        if (ArvDevice* const device = arv_interface_open_device(usb, name.constData(), error->slot()))
            return GObjectPtr<ArvDevice>(device);
    }
#endif
    return GObjectPtr<ArvDevice>(
        arv_interface_open_device(arv_gv_interface_get_instance(), name.constData(), error->slot()));
}

bool hasControl(ArvDevice* device, CGLibError* error)
{
    if (!ARV_IS_GV_DEVICE(device) || arv_gv_device_is_controller(ARV_GV_DEVICE(device)))
        return true;
    // Only for the words: the library makes no stream now. Asking for control again may take it from the other program.
    const GObjectPtr<ArvStream> none(arv_device_create_stream(device, nullptr, nullptr, error->slot()));
    return false;
}

bool isInUse(const QString& address)
{
    CGLibError error;
    const GObjectPtr<ArvDevice> device = openDevice(address, &error);
    return device && !hasControl(device.get(), &error);
}

QString cannotOpenText(const QString& address, const CGLibError& error, bool canNameCommands)
{
    const QString text =
        QCoreApplication::translate("Host::Device", "cannot open camera '%1': %2").arg(address, error.text());
    // Looking for all there are would take a second, each time that a camera is waited for.
    const QString question = didYouMean(address, {SCameraOptions().address});
    if (!canNameCommands)
        return withHint(text, question);
    const QString command = QStringLiteral("'halvex-host cameras' lists them");
    return question.isEmpty() ? withHint(text, command) : withHint(text, question) + QLatin1Char(' ') + command;
}

QString aravisVersion()
{
    return QStringLiteral("%1.%2.%3")
        .arg(arv_get_major_version())
        .arg(arv_get_minor_version())
        .arg(arv_get_micro_version());
}

} // namespace Host
