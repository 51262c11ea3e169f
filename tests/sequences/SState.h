// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <array>
#include <tuple>
#include <vector>

namespace Sequences {

/// Everything that can be seen between operations.
struct SState
{
    struct SNode
    {
        int scene;
        int number;
        int output;
        int foundById;
        bool isFoundByModel;
        bool isOfDocument;

        auto asTuple() const { return std::tie(scene, number, output, foundById, isFoundByModel, isOfDocument); }
    };
    struct SConnection
    {
        int scene;
        int number;
        int in;
        int inPort;
        int out;
        int outPort;

        auto asTuple() const { return std::tie(scene, number, in, inPort, out, outPort); }
    };

    /// Makes states that are the same equal.
    void sort();
    QString text() const;

    std::vector<int> scenes;
    int active = 0;
    std::vector<SNode> nodes;
    std::vector<SConnection> connections;
    std::vector<int> sceneOfInfo;
    int models = 0; // that are alive
};

bool operator==(const SState& left, const SState& right);

} // namespace Sequences
