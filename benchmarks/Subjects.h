// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

class CRatioTable;

// Each registers its benchmarks and adds their rows; nothing larger than \a largest nodes is built, and what is quick
// takes no long runs.
void registerWalks(CRatioTable& table, int largest);
void registerConstruction(CRatioTable& table, int largest);
void registerDocuments(CRatioTable& table, int largest);
void registerDecoupler(CRatioTable& table);
void registerService(CRatioTable& table, int largest);
void registerThreads(CRatioTable& table);
void registerWorkers(CRatioTable& table, bool isQuick);
void registerFilters(CRatioTable& table, bool isQuick);
#ifdef HALVEX_BENCH_HOST
void registerRecording(CRatioTable& table, bool isQuick);
#endif
#ifdef HALVEX_BENCH_PEERS
void registerPeers(CRatioTable& table);
#endif
