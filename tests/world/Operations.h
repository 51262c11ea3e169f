// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/CWorld.h"

#include <functional>
#include <vector>

struct STables;

/// What is left open: ports, variants. Zeros are the plainest choice.
struct SArguments
{
    int a = 0;
    int b = 0;
    int c = 0;
};

/// Asked when all is over, unless something was thrown: whether the operation did what it does. May be empty.
using Proof = std::function<bool()>;

/// What foreign code throws.
struct SThrown
{
};

/// An operation of the service, a scene, a node or a connection.
struct SOperation
{
    const char* name = nullptr;
    EPart part = EPart::Node; ///< What it is done to.
    Proof (*run)(CWorld&, const SPlace&, const SArguments&) = nullptr;
    /// Changes the tables as the operation does.
    void (*expect)(STables&, const CWorld&, const SPlace&, const SArguments&) = nullptr;
    int weight = 0;           ///< How often it is chosen, among others.
    bool isOfService = false; ///< And so throws nothing.
    SArguments inMatrix = {}; ///< Where the plainest choice does nothing.
};

/// The import document that adds a node behind the source of \a place's scene.
QString importDocumentFor(const SPlace& place);

const std::vector<SOperation>& operations();
/// Those that destroy or rewire something, and all of the service.
std::vector<const SOperation*> matrixOperations();
