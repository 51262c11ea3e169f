// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeScene.h>

#include <QString>

#include <memory>

/// Ends the process with \a what unless \a holds: that is how a fuzzer learns of it.
void require(bool holds, const QString& what);

/// Registers models of all kinds, a decoupler and a converter.
void registerFuzzModels(Plugin::Halvex::CNodeDataModelRegistry& registry);

/// The one registry, with these in it, of the scenes that fuzzers make by themselves.
std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> fuzzRegistry();

/// The scene is sound, and its document, read into another scene, gives the same again.
void requireSoundness(const Plugin::Halvex::CNodeScene& scene);
void requireRoundTrip(const Plugin::Halvex::CNodeScene& scene);

/// No model and no data is left.
void requireNothingLeft();
