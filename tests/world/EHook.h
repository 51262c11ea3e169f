// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

/// Every place where the library runs foreign code in the graph's thread.
enum class EHook
{
    // Signals of a scene, of the service, of a connection, of a model, its proxy, a decoupler and a worker.
    NodeCreated,
    NodeDeleted,
    ConnectionCreated,
    ConnectionDeleted,
    SceneAdded,
    ActiveSceneChanged,
    SceneRemoving,
    SceneRemoved,
    Updated,
    DataUpdatedFirst, ///< Before the model's node hears of it.
    DataUpdatedLast,
    NewData,
    InfoInjected,
    InDataUpdated,
    RateChanged,
    ComputingStarted,
    ComputingFinished,
    DataInvalidated,
    SettingChanged,
    // What a model is asked or told; converters, creators and visitors.
    Name,
    IsUnique,
    Ports,
    DataType,
    SetInData,
    OutData,
    MakeWork,
    Save,
    Restore,
    Creator,
    Converter,
    Visitor,
    // Destructors.
    ModelDestroyed,
    DataDestroyed,
    InfoDestroyed
};

constexpr int hookCount = int(EHook::InfoDestroyed) + 1;
