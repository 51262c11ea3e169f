// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include "support/CLeakTest.h"
#include "support/CTestModel.h"

#include <QtTest>

#include <functional>
#include <stdexcept>
#include <type_traits>

using namespace Plugin::Halvex;

static_assert(!std::is_copy_constructible_v<CNodeDataModelRegistry>, "a catalogue is shared, not copied");
static_assert(!std::is_copy_assignable_v<CNodeDataModelRegistry>, "a catalogue is shared, not copied");
static_assert(std::is_nothrow_move_constructible_v<CNodeDataModelRegistry>, "moves its tables");
static_assert(std::is_nothrow_move_assignable_v<CNodeDataModelRegistry>, "moves its tables");
static_assert(!std::is_polymorphic_v<CNodeDataModelRegistry>, "a plain class");
static_assert(std::is_same_v<ModelCreator, std::function<std::unique_ptr<CNodeDataModel>()>>, "what hosts pass");
static_assert(std::is_same_v<NodeDataConverter, std::function<CNodeDataPtr(CNodeDataPtr)>>, "what hosts pass");

namespace {

const QString Blur = QStringLiteral("Blur");
const QString Edges = QStringLiteral("Edges");
const QString Filters = QStringLiteral("Filters");
const QString Tools = QStringLiteral("Tools");

const SNodeDataType TypeA{QStringLiteral("A"), QStringLiteral("x")};
const SNodeDataType TypeB{QStringLiteral("B"), QStringLiteral("y")};

using Categories = std::set<QString>;

/// A creator of models with that name; the number of output ports tells creators of one name apart.
ModelCreator creatorOf(const QString& name, unsigned int outPorts = 1)
{
    return [name, outPorts] { return std::make_unique<CTestModel>(0U, outPorts, name); };
}

unsigned int outPortsOf(CNodeDataModelRegistry& registry, const QString& name)
{
    const std::unique_ptr<CNodeDataModel> model = registry.create(name);
    return model ? model->nPorts(ENodePortType::Out) : 0;
}

/// A converter that returns \a value for everything.
NodeDataConverter converterTo(int value)
{
    return [value](const CNodeDataPtr&) { return CTestData::make(value); };
}

/// What the converter from \a from to \a to makes; -1 if there is no such converter.
int convertedBy(const CNodeDataModelRegistry& registry, const SNodeDataType& from, const SNodeDataType& to)
{
    const NodeDataConverter converter = registry.getTypeConverter(from, to);
    return converter ? CTestData::valueOf(converter(CNodeDataPtr())) : -1;
}

void fill(CNodeDataModelRegistry& registry)
{
    registry.registerModel(creatorOf(Blur), Filters);
    registry.registerTypeConverter({TypeA, TypeB}, converterTo(1));
}

bool isFilled(CNodeDataModelRegistry& registry)
{
    return registry.registeredModelCreators().size() == 1 && registry.create(Blur) &&
           registry.registeredModelsCategoryAssociation().at(Blur) == Filters &&
           registry.categories() == Categories{Filters} && convertedBy(registry, TypeA, TypeB) == 1;
}

bool isEmpty(CNodeDataModelRegistry& registry)
{
    return registry.registeredModelCreators().empty() && registry.registeredModelsCategoryAssociation().empty() &&
           registry.categories().empty() && !registry.create(Blur) && convertedBy(registry, TypeA, TypeB) == -1;
}

class CDefaultModel : public CTestModel
{
public:
    CDefaultModel()
        : CTestModel(0, 3, QStringLiteral("Default"))
    {
    }
};

} // namespace

class tst_CNodeDataModelRegistry : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void holdsWhatIsRegistered();
    void registersByType();
    void makesAndDestroysOnePrototype();
    void prototypeIsGoneBeforeTheNameIsLookedUp();
    void firstCreatorOfEachNameWins();
    void categoriesAreSortedAndListedOnce();
    void createsIndependentModels();
    void creatorsThatMakeNothingLeaveTheRegistryAsItWas();
    void storedCreatorIsCalled();
    void creatorMayRegister();
    void creatorMayReplaceTheRegistry();
    void convertersAreFoundByIdAndDirection_data();
    void convertersAreFoundByIdAndDirection();
    void lastConverterOfAPairWins();
    void returnsACopyOfTheConverter();
    void movesAllTables();
    void moveAssignmentReplacesAllTables();
};

void tst_CNodeDataModelRegistry::holdsWhatIsRegistered()
{
    CNodeDataModelRegistry registry;
    QVERIFY(isEmpty(registry));
    fill(registry);
    QVERIFY(isFilled(registry));
    QCOMPARE(registry.registeredModelCreators().count(Blur), std::size_t(1));
    QCOMPARE(registry.registeredModelsCategoryAssociation().size(), std::size_t(1));
    QCOMPARE(registry.create(Blur)->name(), Blur);
    QVERIFY(!registry.create(Edges) && !registry.create(QString()));
    QVERIFY(isFilled(registry));
}

void tst_CNodeDataModelRegistry::registersByType()
{
    CNodeDataModelRegistry registry;
    registry.registerModel<CDefaultModel>(Filters);
    registry.registerModel<CTestModel>(creatorOf(Blur, 2), Filters);
    QCOMPARE(outPortsOf(registry, "Default"), 3U);
    QCOMPARE(outPortsOf(registry, Blur), 2U);
    QCOMPARE(registry.categories(), Categories{Filters});
}

void tst_CNodeDataModelRegistry::makesAndDestroysOnePrototype()
{
    CNodeDataModelRegistry registry;
    int made = 0;
    // One as well for a name that is taken, since it has to be asked for.
    for (const int expected : {1, 2}) {
        registry.registerModel(
            [&made] {
                ++made;
                return std::make_unique<CTestModel>(0U, 1U, Blur);
            },
            Filters);
        QCOMPARE(made, expected);
        QCOMPARE(CTestModel::alive(), 0);
    }
}

void tst_CNodeDataModelRegistry::prototypeIsGoneBeforeTheNameIsLookedUp()
{
    CNodeDataModelRegistry registry;
    int destroyed = 0;
    registry.registerModel(
        [&] {
            auto model = std::make_unique<CTestModel>(0U, 1U, Blur);
            model->onDestroyed = [&] {
                // Whoever takes the name now is first.
                if (++destroyed == 1)
                    registry.registerModel(creatorOf(Blur, 2), Tools);
            };
            return model;
        },
        Filters);

    QCOMPARE(destroyed, 1);
    QCOMPARE(outPortsOf(registry, Blur), 2U);
    QCOMPARE(registry.categories(), Categories{Tools});
}

void tst_CNodeDataModelRegistry::firstCreatorOfEachNameWins()
{
    CNodeDataModelRegistry registry;
    registry.registerModel(creatorOf(Blur, 1), Filters);
    registry.registerModel(creatorOf(Blur, 2), Tools);
    registry.registerModel(creatorOf(Blur.toLower(), 3), Filters);
    registry.registerModel(creatorOf(QString(), 4), QString());
    QCOMPARE(outPortsOf(registry, Blur), 1U);
    QCOMPARE(outPortsOf(registry, Blur.toLower()), 3U);
    QCOMPARE(outPortsOf(registry, QLatin1String("")), 4U); // a name like any other
    QCOMPARE(registry.registeredModelsCategoryAssociation().at(Blur), Filters);
    QCOMPARE(registry.categories(), (Categories{QString(), Filters}));
}

void tst_CNodeDataModelRegistry::categoriesAreSortedAndListedOnce()
{
    CNodeDataModelRegistry registry;
    registry.registerModel(creatorOf("1"), Tools);
    registry.registerModel(creatorOf("2"), Filters);
    registry.registerModel(creatorOf("3"), Tools);
    registry.registerModel(creatorOf("4"), "Outputs");

    const std::vector<QString> listed(registry.categories().begin(), registry.categories().end());
    QCOMPARE(listed, (std::vector<QString>{Filters, "Outputs", Tools}));
    QCOMPARE(registry.registeredModelsCategoryAssociation().size(), std::size_t(4));
}

void tst_CNodeDataModelRegistry::createsIndependentModels()
{
    CNodeDataModelRegistry registry;
    registry.registerModel(creatorOf(Blur, 1), Filters);
    registry.registerModel(creatorOf(Edges, 2), Filters);

    const auto first = registry.create(Blur);
    const auto second = registry.create(Blur);
    QVERIFY(first && second && first != second);
    QCOMPARE(CTestModel::alive(), 2);
    QCOMPARE(outPortsOf(registry, Edges), 2U);
}

void tst_CNodeDataModelRegistry::creatorsThatMakeNothingLeaveTheRegistryAsItWas()
{
    CNodeDataModelRegistry registry;
    const ModelCreator failing = []() -> std::unique_ptr<CNodeDataModel> { throw std::runtime_error("no model"); };
    const ModelCreator nameless = [] {
        auto model = std::make_unique<CTestModel>();
        model->onName = [] { throw std::runtime_error("no name"); };
        return model;
    };
    QVERIFY_EXCEPTION_THROWN(registry.registerModel(ModelCreator(), Filters), std::bad_function_call);
    QVERIFY_EXCEPTION_THROWN(registry.registerModel(failing, Filters), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(registry.registerModel(nameless, Filters), std::runtime_error);
    registry.registerModel([] { return nullptr; }, Filters);
    QVERIFY(isEmpty(registry));
    QVERIFY(!registry.create(QString()));
}

void tst_CNodeDataModelRegistry::storedCreatorIsCalled()
{
    CNodeDataModelRegistry registry;
    // It names the models after how often it was called, the prototype's call included, until it has none left.
    registry.registerModel(
        [calls = 0]() mutable {
            ++calls;
            const QString name = calls == 1 ? Blur : QString::number(calls);
            return calls > 3 ? nullptr : std::make_unique<CTestModel>(0U, 1U, name);
        },
        Filters);
    QCOMPARE(registry.create(Blur)->name(), QString("2"));
    QCOMPARE(registry.create(Blur)->name(), QString("3"));
    QVERIFY(!registry.create(Blur));
}

void tst_CNodeDataModelRegistry::creatorMayRegister()
{
    CNodeDataModelRegistry registry;
    registry.registerModel(
        [&registry] {
            for (int i = 0; i < 100; ++i)
                registry.registerModel(creatorOf(QString::number(i)), Tools);
            return std::make_unique<CTestModel>(0U, 2U, Blur);
        },
        Filters);
    QCOMPARE(registry.registeredModelCreators().size(), std::size_t(101));
    QCOMPARE(outPortsOf(registry, Blur), 2U);
}

void tst_CNodeDataModelRegistry::creatorMayReplaceTheRegistry()
{
    CNodeDataModelRegistry registry;
    bool replaces = false;
    registry.registerModel(
        [&registry, &replaces, name = Blur] {
            if (replaces)
                registry = CNodeDataModelRegistry();
            return std::make_unique<CTestModel>(0U, 1U, name);
        },
        Filters);
    replaces = true;
    QCOMPARE(registry.create(Blur)->name(), Blur);
    QVERIFY(isEmpty(registry));
}

void tst_CNodeDataModelRegistry::convertersAreFoundByIdAndDirection_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("converted");

    const auto addRow = [](const char* name, const char* from, const char* to, int converted) {
        QTest::newRow(name) << QString(from) << QString(to) << converted;
    };
    addRow("one way", "A", "B", 1);
    addRow("the other way", "B", "A", 2);
    addRow("first id alone", "AB", "", 3);
    addRow("second id alone", "", "AB", 4);
    addRow("other case", "a", "B", -1);
    addRow("same type", "A", "A", -1);
    addRow("no such pair", "A", "AB", -1);
    addRow("no ids", "", "", -1);
}

void tst_CNodeDataModelRegistry::convertersAreFoundByIdAndDirection()
{
    QFETCH(const QString, from);
    QFETCH(const QString, to);
    CNodeDataModelRegistry registry;
    QVERIFY(!registry.getTypeConverter({from, {}}, {to, {}}));
    registry.registerTypeConverter({TypeA, TypeB}, converterTo(1));
    registry.registerTypeConverter({TypeB, TypeA}, converterTo(2));
    registry.registerTypeConverter({{"AB", {}}, {}}, converterTo(3));
    registry.registerTypeConverter({{}, {"AB", {}}}, converterTo(4));
    QTEST(convertedBy(registry, {from, "any name"}, {to, {}}), "converted");
}

void tst_CNodeDataModelRegistry::lastConverterOfAPairWins()
{
    CNodeDataModelRegistry registry;
    registry.registerTypeConverter({TypeA, TypeB}, converterTo(1));
    registry.registerTypeConverter({{"A", {}}, {"B", {}}}, converterTo(2)); // names do not count
    QCOMPARE(convertedBy(registry, TypeA, TypeB), 2);
    registry.registerTypeConverter({TypeA, TypeB}, {});
    QVERIFY(!registry.getTypeConverter(TypeA, TypeB));
}

void tst_CNodeDataModelRegistry::returnsACopyOfTheConverter()
{
    NodeDataConverter converter;
    {
        CNodeDataModelRegistry registry;
        registry.registerTypeConverter({TypeA, TypeB}, converterTo(1));
        converter = registry.getTypeConverter(TypeA, TypeB);
        registry.registerTypeConverter({TypeA, TypeB}, converterTo(2));
    }
    QCOMPARE(CTestData::valueOf(converter(CNodeDataPtr())), 1);
}

void tst_CNodeDataModelRegistry::movesAllTables()
{
    CNodeDataModelRegistry from;
    fill(from);
    CNodeDataModelRegistry to(std::move(from));
    QVERIFY(isFilled(to));
    QVERIFY(isEmpty(from)); // NOLINT(bugprone-use-after-move): what it is then is the question
    fill(from);
    QVERIFY(isFilled(from));
}

void tst_CNodeDataModelRegistry::moveAssignmentReplacesAllTables()
{
    CNodeDataModelRegistry from;
    fill(from);
    CNodeDataModelRegistry to;
    to.registerModel(creatorOf(Edges), Tools);
    to.registerTypeConverter({TypeB, TypeA}, converterTo(2));

    to = std::move(from);
    QVERIFY(isFilled(to));
    QVERIFY(!to.create(Edges));
    QCOMPARE(convertedBy(to, TypeB, TypeA), -1);
    fill(from); // NOLINT(bugprone-use-after-move): what it is then is the question
    QVERIFY(isFilled(from));

    CNodeDataModelRegistry& same = to;
    to = std::move(same);
    QVERIFY(isFilled(to));
}

QTEST_GUILESS_MAIN(tst_CNodeDataModelRegistry)

#include "tst_CNodeDataModelRegistry.moc"
