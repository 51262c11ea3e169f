// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/testing/CheckModel.h>

#include "testing/SModelSubject_p.h"

#include <QCoreApplication>

#include <memory>

namespace Plugin::Halvex::Testing {

namespace {

QString nameOf(const ModelCreator& creator)
{
    QString name;
    thrownBy([&] {
        if (const std::unique_ptr<CNodeDataModel> model = creator())
            name = model->name();
    });
    return name;
}

} // namespace

SReport checkModel(const ModelCreator& creator, const SCheckOptions& options)
{
    if (!QCoreApplication::instance())
        qFatal("checkModel() needs a QCoreApplication");
    SReport report;
    tryRules(modelRuleTable(), SModelSubject{creator, options, &report.times}, &report);
    report.subject = subjectNamed(nameOf(creator));
    return report;
}

std::vector<SRuleInfo> modelRules()
{
    return infosOf(modelRuleTable());
}

} // namespace Plugin::Halvex::Testing
