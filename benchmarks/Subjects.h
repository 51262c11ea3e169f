// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

class CRatioTable;

// Each registers its benchmarks and adds their rows; nothing larger than \a largest nodes is built.
void registerWalks(CRatioTable& table, int largest);
void registerConstruction(CRatioTable& table, int largest);
void registerDocuments(CRatioTable& table, int largest);
void registerDecoupler(CRatioTable& table);
void registerService(CRatioTable& table, int largest);
void registerThreads(CRatioTable& table);
void registerWorkers(CRatioTable& table);
#ifdef HALVEX_BENCH_PEERS
void registerPeers(CRatioTable& table);
#endif
