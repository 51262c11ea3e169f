// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CGLibError.h"
#include "host/camera/GObjectPtr.h"

#include <QString>

#include <vector>

struct _ArvDevice;

namespace Host {

/// What can be opened, as it tells of itself.
struct SCameraEntry
{
    QString id; ///< What --camera takes.
    QString maker;
    QString model;
    QString serialNumber;
    QString protocol;
};

/// The cameras that answer, and the one that is built into the library first. Asks the network and the USB bus, which
/// takes a second. Threads: any, also while another one opens a camera.
std::vector<SCameraEntry> findCameras();

/// Of the library that opens cameras, as it runs: "0.8.26".
QString aravisVersion();

/// Opens what SCameraOptions::address names. Null, with the reason in \a error, if it is not there. Threads: any; one
/// opens after the other.
GObjectPtr<_ArvDevice> openDevice(const QString& address, CGLibError* error);

/// Whether this program may set the camera and have its frames. False, with the library's words in \a error, if another
/// one is using a network camera; a camera of another kind is not opened then.
bool hasControl(_ArvDevice* device, CGLibError* error);

/// Whether it can be reached but another program has control of it. Asks the camera, which may take seconds.
bool isInUse(const QString& address);

/// Why the camera cannot be opened, in the user's language, and where to look for its right name: with a command to
/// type if \a canNameCommands.
QString cannotOpenText(const QString& address, const CGLibError& error, bool canNameCommands = true);

} // namespace Host
