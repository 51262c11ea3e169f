// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Who a model is: its name, its class, its place among objects and threads.

#include "testing/CWatchedModel_p.h"
#include "testing/rules/ModelRules_p.h"

#include <QJsonObject>
#include <QThread>

#include <cstdlib>
#include <cxxabi.h>
#include <functional>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Plugin::Halvex::Testing {

namespace {

/// "Host::CBlurModel"
QString classOf(const CNodeDataModel& model)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(model).name(), nullptr, nullptr, &status), &std::free);
    // moc does not know of anonymous namespaces.
    return QString::fromLatin1(name ? name.get() : typeid(model).name())
        .remove(QLatin1String("(anonymous namespace)::"));
}

QString classInMetaObject(const CNodeDataModel& model)
{
    return QString::fromLatin1(model.metaObject()->className());
}

/// The name under which a registry has it; empty if under none.
QString registeredName(const SModelSubject& subject)
{
    CNodeDataModelRegistry registry;
    registry.registerModel(subject.creator, QStringLiteral("Test"));
    const auto& creators = registry.registeredModelCreators();
    return creators.empty() ? QString() : creators.begin()->first;
}

} // namespace

SOutcome makesAModel(const SModelSubject& subject)
{
    if (!subject.creator)
        return broken(QStringLiteral("the creator is an empty function"));
    std::unique_ptr<CNodeDataModel> model;
    const QString thrown = thrownBy([&] { model = subject.creator(); });
    if (!thrown.isEmpty())
        return broken(QStringLiteral("the creator %1").arg(thrown));
    return model ? kept() : broken(QStringLiteral("the creator gave null"));
}

SOutcome answersQuestions(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    const std::vector<std::pair<const char*, std::function<void()>>> questions = {
        {"caption()", [&] { model->caption(); }},
        {"captionVisible()", [&] { model->captionVisible(); }},
        {"name()", [&] { model->name(); }},
        {"nPorts(In)", [&] { model->nPorts(ENodePortType::In); }},
        {"nPorts(Out)", [&] { model->nPorts(ENodePortType::Out); }},
        {"validationState()", [&] { model->validationState(); }},
        {"validationMessage()", [&] { model->validationMessage(); }},
        {"save()", [&] { model->save(); }},
    };
    for (const auto& [call, ask] : questions) {
        const QString thrown = thrownBy(ask);
        if (!thrown.isEmpty())
            return broken(QStringLiteral("%1 %2").arg(QString::fromLatin1(call), thrown));
    }
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        for (NodePortIndex port = 0; port < NodePortIndex(model->nPorts(side)); ++port) {
            const QString seen = thrownWhenAsked(*model, side, port);
            if (!seen.isEmpty())
                return broken(seen);
        }
    }
    return kept();
}

SOutcome hasAName(const SModelSubject& subject)
{
    return subject.creator()->name().isEmpty() ? broken(QStringLiteral("name() is empty")) : kept();
}

SOutcome nameStaysTheSame(const SModelSubject& subject)
{
    CWatchedModel model(subject);
    const QString before = model->name();
    model.use();
    const QString after = model->name();
    if (before != after)
        return broken(QStringLiteral("name() was \"%1\", and \"%2\" when the model had been used").arg(before, after));
    return kept();
}

SOutcome registersUnderOneName(const SModelSubject& subject)
{
    const QString first = registeredName(subject);
    const QString second = registeredName(subject);
    if (first != second)
        return broken(QStringLiteral("it was registered as \"%1\", and a second time as \"%2\"").arg(first, second));
    return kept();
}

SOutcome hasACaption(const SModelSubject& subject)
{
    return subject.creator()->caption().isEmpty() ? broken(QStringLiteral("caption() is empty")) : kept();
}

SOutcome hasItsMetaObject(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    const QString ownClass = classOf(*model);
    const QString metaClass = classInMetaObject(*model);
    // A template has none: moc cannot make it.
    if (ownClass == metaClass || ownClass.contains(QLatin1Char('<')))
        return kept();
    if (!metaClass.startsWith(QLatin1String("Plugin::Halvex::")))
        return broken(QStringLiteral("it is a %1, and its meta-object says %2").arg(ownClass, metaClass));
    // Right on top of a class of the library a model can do without, unless it has something to show.
    const auto settings = int(model->save().value(QLatin1String("property")).toObject().size());
    const int properties = model->metaObject()->propertyCount() - QObject::staticMetaObject.propertyCount();
    if (settings <= properties)
        return kept();
    return broken(QStringLiteral("settings that it saves: %1; properties in its meta-object, of %2: %3")
                      .arg(settings)
                      .arg(metaClass)
                      .arg(properties));
}

SOutcome hasNoParent(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    if (!model->parent())
        return kept();
    return broken(QStringLiteral("a new model has a parent, a %1")
                      .arg(QString::fromLatin1(model->parent()->metaObject()->className())));
}

SOutcome livesInTheGraphsThread(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    return model->thread() == QThread::currentThread() ? kept()
                                                       : broken(QStringLiteral("thread() is not the one that made it"));
}

} // namespace Plugin::Halvex::Testing
