// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/graph/SNodeDataType.h>

#include <QHash>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <type_traits>
#include <unordered_map>
#include <utility>

#if QT_VERSION < QT_VERSION_CHECK(5, 14, 0)
namespace std {
// Newer Qt brings this itself.
template <>
struct hash<QString>
{
    // Survives returned value: a newer Qt does not compile it.
    size_t operator()(const QString& text) const noexcept { return qHash(text); }
};
} // namespace std
#endif

namespace Plugin::Halvex {

/// Makes a new, independent model at each call.
using ModelCreator = std::function<std::unique_ptr<CNodeDataModel>()>;

/**
 * The catalogue from which scenes make models by name, and the converters between data types.
 *
 * \code
 * registry.registerModel<CBlurModel>(QStringLiteral("Filters"));
 * registry.registerTypeConverter({CVeltraGrabResultData().type(), CImageData().type()}, &toImage);
 *
 * if (std::unique_ptr<CNodeDataModel> model = registry.create(QStringLiteral("Blur")))
 *     scene.createNode(std::move(model));
 * else
 *     qWarning("no model of that name");
 * \endcode
 *
 * Nothing is ever removed. Of several models with one name, the first that was registered counts; of several converters
 * for one pair of type ids, the last.
 *
 * Ownership: scenes share a registry through `std::shared_ptr`. It owns the creators and converters.
 *
 * Threads: not thread-safe. It is filled at start-up and then read in the graph's thread.
 */
class HALVEX_EXPORT CNodeDataModelRegistry
{
public:
    CNodeDataModelRegistry();
    /// Takes everything over; the other one is empty then.
    CNodeDataModelRegistry(CNodeDataModelRegistry&&) noexcept;
    /// The same; what was registered here goes.
    CNodeDataModelRegistry& operator=(CNodeDataModelRegistry&&) noexcept;
    ~CNodeDataModelRegistry();
    CNodeDataModelRegistry(const CNodeDataModelRegistry&) = delete;
    CNodeDataModelRegistry& operator=(const CNodeDataModelRegistry&) = delete;

    /// Registers \a creator under the name() of the models it makes, in \a category. Does nothing if the name is taken.
    /// One model is made and destroyed to learn the name, so that must be cheap, leave no traces, and must not destroy
    /// this registry.
    /// An empty creator throws `std::bad_function_call`; one that makes nothing is not registered.
    template <typename Model = CNodeDataModel>
    void registerModel(ModelCreator creator, const QString& category)
    {
        static_assert(std::is_base_of<CNodeDataModel, Model>::value, "only models can be registered");
        add(std::move(creator), category);
    }

    /// The same with a creator that calls Model's default constructor.
    template <typename Model>
    void registerModel(const QString& category)
    {
        registerModel<Model>([] { return std::make_unique<Model>(); }, category);
    }

    /// A new model, from the creator that is stored: one that counts goes on counting. Null if no creator has that
    /// name, or if the creator makes nothing.
    std::unique_ptr<CNodeDataModel> create(const QString& modelName);

    /// Every category that has a model, sorted.
    const std::set<QString>& categories() const;

    /// Model name to creator.
    const std::unordered_map<QString, ModelCreator>& registeredModelCreators() const;

    /// Model name to category.
    const std::unordered_map<QString, QString>& registeredModelsCategoryAssociation() const;

    /// \a fromTo: the type that an output port gives and the type that an input port takes. Only the ids count.
    void registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo, NodeDataConverter converter);

    /// The converter for that pair of type ids; an empty function if there is none, so test it before calling.
    NodeDataConverter getTypeConverter(const SNodeDataType& from, const SNodeDataType& to) const;

private:
    void add(ModelCreator creator, const QString& category);

    std::unordered_map<QString, QString> m_categoryOfModel;
    std::set<QString> m_categories;
    // Shared with a create() that is under way: the creator that it calls may replace or destroy this registry.
    std::shared_ptr<std::unordered_map<QString, ModelCreator>> m_creators;
    std::map<std::pair<QString, QString>, NodeDataConverter> m_converters; // by the ids of both types
};

} // namespace Plugin::Halvex
