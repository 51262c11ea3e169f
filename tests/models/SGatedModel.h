// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CWorkerModel.h"

#include <QThreadPool>

#include <memory>

/// A model with gated work, and a pool of its own: what it waits for is no other test's business.
struct SGatedModel
{
    explicit SGatedModel(int threads = 1)
    {
        pool.setMaxThreadCount(threads);
        model = std::make_unique<CWorkerModel>();
        model->setThreadPool(&pool);
        model->setParallelism(threads);
        model->setWork(work);
    }

    QThreadPool pool;
    CGatedWork work;
    std::unique_ptr<CWorkerModel> model;
};
