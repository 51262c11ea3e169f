// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// How far the library goes, and what happens just beyond. docs/limits.md says what it shows; what it prints goes to
// docs/figures.md.
//
//   limits [--short] chain|nodes|ports|document|depth|decouplers|frames ...
//
// Each prints a table; times are medians of several runs. Exit code 0: each limit was met as the table says, and what
// lies beyond it left everything usable. --short takes small sizes and one run, to test the program and what it checks.

#include "support/BoundedWait.h"
#include "support/CTestData.h"
#include "support/CTestSource.h"
#include "support/SceneConsistency.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <new>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr double mebibyte = 1024.0 * 1024.0;

bool s_isShort = false;

void check(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "limits: %s\n", what);
    std::_Exit(1);
}

int runs()
{
    return s_isShort ? 1 : 5;
}

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double medianOf(const std::function<double()>& measure)
{
    std::vector<double> values(std::size_t(runs()), 0.0);
    std::generate(values.begin(), values.end(), measure);
    return medianOf(std::move(values));
}

double millisecondsOf(const std::function<void()>& work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return double(clock.nsecsElapsed()) / 1e6;
}

double bytesInUse()
{
    const auto info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

/// A value out of /proc/self/status, in kibibytes or as a plain number.
double processStatus(const QByteArray& key)
{
    QFile file(QStringLiteral("/proc/self/status"));
    check(file.open(QIODevice::ReadOnly), "/proc/self/status cannot be read");
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(key + ':'))
            return line.mid(key.size() + 1).simplified().split(' ').first().toDouble();
    }
    return 0;
}

std::atomic<int> s_complaints{0};
std::atomic<int> s_delivered{0};

void countComplaints(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ++s_complaints;
}

/// Passes on what it gets, as cheaply as a model can.
class CPassModel : public CNodeDataModel
{
public:
    explicit CPassModel(unsigned int ports = 1)
        : m_ports(ports)
    {
    }

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Pass"); }
    unsigned int nPorts(ENodePortType portType) const override { return portType == ENodePortType::None ? 0 : m_ports; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CTestData::defaultType(); }
    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        ++s_reached;
        m_data = work && data ? work(data) : std::move(data);
        Q_EMIT dataUpdated(index);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_data; }
    QJsonObject save() const override
    {
        QJsonObject json = CNodeDataModel::save();
        if (!settings.isEmpty())
            json.insert(QStringLiteral("settings"), settings);
        return json;
    }

    std::function<CNodeDataPtr(const CNodeDataPtr&)> work;
    QJsonObject settings;

    static inline std::atomic<int> s_reached{0};

private:
    unsigned int m_ports;
    CNodeDataPtr m_data;
};

using CTestDecoupler = CGenericNodeDecouplerDataModel<CTestData>;

using Nodes = std::vector<CNodeBase*>;

/// Makes a node for each place in \a nodes.
void addNodes(CNodeScene& scene, Nodes& nodes)
{
    for (CNodeBase*& node : nodes)
        node = &scene.createNode(std::make_unique<CPassModel>());
}

void chain(CNodeScene& scene, const Nodes& nodes)
{
    for (std::size_t i = 1; i < nodes.size(); ++i)
        scene.createConnection(*nodes[i], 0, *nodes[i - 1], 0, NodeDataConverter());
}

/// Sends one frame into a chain that is too long for the stack; returns how many nodes it has reached.
int walk(int length)
{
    CNodeScene scene(nullptr, nullptr);
    Nodes nodes(std::size_t(length), nullptr);
    addNodes(scene, nodes);
    chain(scene, nodes);
    s_complaints = 0;
    CPassModel::s_reached = 0;
    nodes.front()->propagateData(CTestData::make(1), 0);
    const int reached = CPassModel::s_reached;
    check(reached == length || s_complaints == 1, "a delivery was dropped without a warning");

    CPassModel::s_reached = 0;
    nodes[nodes.size() - 10]->propagateData(CTestData::make(2), 0);
    check(CPassModel::s_reached == 10, "the end of the chain does not work after a walk was cut");
    return reached;
}

void measureChain()
{
    std::printf("| stack | nodes reached | per MiB | beyond |\n| ---: | ---: | ---: | --- |\n");
    for (const unsigned int stack : {1U, 2U, 8U, 64U}) {
        if (s_isShort && stack > 1)
            break;
        const int length = int(stack) * 12000;
        int reached = 0;
        QThread* const thread = QThread::create([&reached, length] { reached = walk(length); });
        thread->setStackSize(stack * unsigned(mebibyte));
        thread->start();
        waitForEnd(*thread);
        delete thread;
        check(reached > 100, "hardly any node was reached");
        check(reached < length, "the chain was not long enough to find the limit");
        std::printf("| %u MiB | %d | %d | one warning, the other %d nodes get nothing, the walk returns |\n", stack,
                    reached, reached / int(stack), length - reached);
    }
}

void measureNodes()
{
    std::printf("| nodes, connections | node | connection | memory per node | per connection | remove one | clear all "
                "|\n| ---: | ---: | ---: | ---: | ---: | ---: | ---: |\n");
    for (const int count : {1000, 10000, 100000, 1000000}) {
        if (s_isShort && count > 1000)
            break;
        std::vector<double> nodeTimes, linkTimes, removeTimes, clearTimes;
        double nodeBytes = 0;
        double linkBytes = 0;
        for (int run = 0; run < runs(); ++run) {
            CNodeScene scene(nullptr, nullptr);
            Nodes nodes(std::size_t(count), nullptr);
            const double empty = bytesInUse();
            nodeTimes.push_back(millisecondsOf([&] { addNodes(scene, nodes); }));
            const double unconnected = bytesInUse();
            linkTimes.push_back(millisecondsOf([&] { chain(scene, nodes); }));
            nodeBytes = unconnected - empty;
            linkBytes = bytesInUse() - unconnected;
            removeTimes.push_back(millisecondsOf([&] { scene.removeNode(*nodes[nodes.size() / 2]); }));
            check(scene.connections().size() == nodes.size() - 3, "a removal has left connections");
            clearTimes.push_back(millisecondsOf([&] { scene.clearScene(); }));
        }
        std::printf("| %d | %.2f µs | %.2f µs | %.0f B | %.0f B | %.1f µs | %.0f ms |\n", count,
                    medianOf(nodeTimes) * 1e3 / count, medianOf(linkTimes) * 1e3 / count, nodeBytes / count,
                    linkBytes / (count - 1), medianOf(removeTimes) * 1e3, medianOf(clearTimes));
    }
}

void measurePorts()
{
    std::printf("| ports per side | make the node | memory per port | connect and deliver at the last |\n"
                "| ---: | ---: | ---: | ---: |\n");
    for (const unsigned int count : {1U, 1000U, 100000U, 10000000U}) {
        if (s_isShort && count > 1000)
            break;
        CNodeScene scene(nullptr, nullptr);
        CNodeBase& sink = scene.createNode(std::make_unique<CPassModel>());
        const double before = bytesInUse();
        CNodeBase* node = nullptr;
        const double made = millisecondsOf([&] { node = &scene.createNode(std::make_unique<CPassModel>(count)); });
        const double bytes = bytesInUse() - before;
        CPassModel::s_reached = 0;
        const double delivered = millisecondsOf([&] {
            scene.createConnection(sink, 0, *node, int(count - 1), NodeDataConverter());
            node->propagateData(CTestData::make(1), int(count - 1));
        });
        check(CPassModel::s_reached == 2, "the last port does not deliver");
        std::printf("| %u | %.3f ms | %.0f B | %.1f µs |\n", count, made, bytes / (2.0 * count), delivered * 1e3);
    }
}

std::shared_ptr<CNodeDataModelRegistry> makeRegistry()
{
    auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel<CPassModel>(QStringLiteral("Tests"));
    return registry;
}

/// A byte array of Qt ends at 2 GiB.
void measureDocumentAtTheEnd()
{
    CNodeScene scene(makeRegistry(), nullptr, nullptr);
    for (int i = 0; i < 8; ++i) {
        auto model = std::make_unique<CPassModel>();
        model->settings.insert(QStringLiteral("x"), QString(256 * int(mebibyte), QLatin1Char('x')));
        scene.createNode(std::move(model));
    }
    bool isRefused = false;
    try {
        scene.saveToMemory();
    } catch (const std::bad_alloc&) {
        isRefused = true;
    }
    check(isRefused && inconsistencyOf(scene).isEmpty(), "a document of more than 2 GiB was made");
    std::printf("\nA document of more than 2048 MiB: saving throws std::bad_alloc, the scene is as it was.\n");
}

void measureDocument()
{
    std::printf("| nodes, connections | document | save | load | memory at the most |\n"
                "| ---: | ---: | ---: | ---: | ---: |\n");
    for (const int count : {1000, 10000, 100000, 1000000}) {
        if (s_isShort && count > 1000)
            break;
        CNodeScene scene(makeRegistry(), nullptr, nullptr);
        Nodes nodes(std::size_t(count), nullptr);
        addNodes(scene, nodes);
        chain(scene, nodes);
        QByteArray document;
        const double saved = medianOf([&] { return millisecondsOf([&] { document = scene.saveToMemory(); }); });
        scene.clearScene();
        const double loaded = medianOf([&] {
            CNodeScene copy(makeRegistry(), nullptr, nullptr);
            const double time = millisecondsOf([&] { copy.loadFromMemory(document); });
            check(copy.nodes().size() == std::size_t(count) && copy.connections().size() == std::size_t(count - 1),
                  "a document has lost something");
            return time;
        });
        std::printf("| %d | %.1f MiB | %.0f ms | %.0f ms | %.0f MiB |\n", count, double(document.size()) / mebibyte,
                    saved, loaded, processStatus("VmHWM") / 1024);
    }
    if (!s_isShort)
        measureDocumentAtTheEnd();
}

/// How many nodes are left of one whose settings are that deep, after it was saved and loaded.
std::size_t nodesLeftOfDepth(int depth)
{
    CNodeScene scene(makeRegistry(), nullptr, nullptr);
    auto model = std::make_unique<CPassModel>();
    for (int i = 0; i < depth; ++i)
        model->settings = QJsonObject{{QStringLiteral("x"), model->settings}};
    scene.createNode(std::move(model));
    CNodeScene copy(makeRegistry(), nullptr, nullptr);
    copy.loadFromMemory(scene.saveToMemory());
    return copy.nodes().size();
}

void measureDepth()
{
    int loaded = 1;
    int refused = 5000;
    check(nodesLeftOfDepth(loaded) == 1 && nodesLeftOfDepth(refused) == 0, "there is no limit of depth");
    while (refused - loaded > 1) {
        const int middle = (loaded + refused) / 2;
        (nodesLeftOfDepth(middle) == 1 ? loaded : refused) = middle;
    }
    std::printf("Settings of a model may be nested %d deep. One deeper, the document is saved all the same, but counts "
                "as no JSON: loading it makes nothing.\n",
                loaded);
}

int threads()
{
    return int(processStatus("Threads"));
}

void measureDecouplers()
{
    std::printf("| decouplers | threads | make | first frame out of all | memory per decoupler | remove all |\n"
                "| ---: | ---: | ---: | ---: | ---: | ---: |\n");
    for (const int count : {10, 100, 1000, 10000}) {
        if (s_isShort && count > 10)
            break;
        const int threadsBefore = threads();
        const double before = processStatus("VmRSS");
        CNodeScene scene(nullptr, nullptr);
        CNodeBase& source = scene.createNode(std::make_unique<CPassModel>());
        s_delivered = 0;
        const double made = millisecondsOf([&] {
            for (int i = 0; i < count; ++i) {
                CNodeBase& node = scene.createNode(std::make_unique<CTestDecoupler>());
                scene.createConnection(node, 0, source, 0, NodeDataConverter());
                QObject::connect(node.nodeDataModel(), &CNodeDataModel::dataUpdated, &scene, [] { ++s_delivered; });
            }
        });
        const double first = millisecondsOf([&] {
            QElapsedTimer clock;
            clock.start();
            source.propagateData(CTestData::make(1), 0);
            while (s_delivered < count) {
                check(clock.elapsed() < 120000, "a decoupler does not deliver");
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            }
        });
        const int started = threads() - threadsBefore;
        const double memory = processStatus("VmRSS") - before;
        check(started == count, "decouplers have no threads of their own");
        const double cleared = millisecondsOf([&] { scene.clearScene(); });
        // A thread ends after its decoupler, and would be counted with the next ones'.
        QElapsedTimer clock;
        clock.start();
        while (threads() != threadsBefore) {
            check(clock.elapsed() < 120000, "threads of decouplers do not end");
            QThread::yieldCurrentThread();
        }
        std::printf("| %d | %d | %.1f ms | %.0f ms | %.0f KiB | %.0f ms |\n", count, started, made, first,
                    memory / count, cleared);
    }
}

constexpr int width = 1920;
constexpr int height = 1080;

class CFrame : public CTestData
{
public:
    CFrame()
        : pixels(std::size_t(width) * height)
    {
    }
    std::vector<quint8> pixels;
};

CNodeDataPtr inverted(const CNodeDataPtr& data)
{
    const auto& in = static_cast<const CFrame&>(*data).pixels;
    const auto out = QSharedPointer<CFrame>::create();
    std::transform(in.begin(), in.end(), out->pixels.begin(), [](quint8 value) { return quint8(255 - value); });
    return out;
}

/// Frames per second through a source and ten nodes behind it.
double framesPerSecond(bool isFromCamera, bool isInverting, int count)
{
    CNodeScene scene(nullptr, nullptr);
    auto model = std::make_unique<CTestSource>();
    CNodeDataFlowProxy& proxy = *model->getDataFlowProxy();
    const CNodeDataEntry entry = model->dataEntry();
    Nodes nodes(10, nullptr);
    addNodes(scene, nodes);
    if (isInverting) {
        for (CNodeBase* const node : nodes)
            static_cast<CPassModel*>(node->nodeDataModel())->work = inverted;
    }
    nodes.insert(nodes.begin(), &scene.createNode(std::move(model)));
    chain(scene, nodes);

    const CNodeDataPtr frame = QSharedPointer<CFrame>::create();
    CPassModel::s_reached = 0;
    const double time = millisecondsOf([&] {
        if (!isFromCamera) {
            for (int i = 0; i < count; ++i)
                proxy.setData(frame);
            return;
        }
        QThread* const camera = QThread::create([&entry, &frame, count] {
            for (int i = 0; i < count; ++i)
                entry.setData(frame);
        });
        camera->start();
        QElapsedTimer clock;
        clock.start();
        while (CPassModel::s_reached < 10 * count) {
            check(clock.elapsed() < 120000, "a frame does not arrive");
            QCoreApplication::processEvents();
        }
        waitForEnd(*camera);
        delete camera;
    });
    check(CPassModel::s_reached == 10 * count, "a frame was lost");
    return count * 1e3 / time;
}

void measureFrames()
{
    const int many = s_isShort ? 100 : 100000;
    const int few = s_isShort ? 5 : 100;
    std::printf("| chain of ten, 1920 x 1080, 8 bit | frames per second |\n| --- | ---: |\n");
    std::printf("| frames pass unchanged, fed in the graph's thread | %.0f |\n",
                medianOf([&] { return framesPerSecond(false, false, many); }));
    std::printf("| frames pass unchanged, fed by a camera thread | %.0f |\n",
                medianOf([&] { return framesPerSecond(true, false, many); }));
    std::printf("| every node makes a new, inverted frame | %.0f |\n",
                medianOf([&] { return framesPerSecond(false, true, few); }));

    CTestSource source;
    const int count = s_isShort ? 10 : 200;
    const double before = bytesInUse();
    for (int i = 0; i < count; ++i)
        source.dataEntry().setData(QSharedPointer<CFrame>::create());
    const double waiting = bytesInUse() - before;
    int announced = 0;
    QObject::connect(&source, &CTestSource::dataUpdated, &source, [&announced] { ++announced; });
    QElapsedTimer clock;
    clock.start();
    while (announced < count) {
        check(clock.elapsed() < 120000, "a frame that waits does not arrive");
        QCoreApplication::processEvents();
    }
    const double left = bytesInUse() - before;
    check(waiting > 1.9 * mebibyte * count && left < 4 * mebibyte, "frames do not wait, or stay");
    std::printf("\nFaster than the graph: %d frames that wait take %.0f MiB, nothing is dropped; when the graph has "
                "caught up, %.0f MiB.\n",
                count, waiting / mebibyte, left / mebibyte);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(&countComplaints);
    const std::vector<std::pair<QString, void (*)()>> limits = {
        {QStringLiteral("chain"), &measureChain},           {QStringLiteral("nodes"), &measureNodes},
        {QStringLiteral("ports"), &measurePorts},           {QStringLiteral("document"), &measureDocument},
        {QStringLiteral("depth"), &measureDepth},           {QStringLiteral("frames"), &measureFrames},
        {QStringLiteral("decouplers"), &measureDecouplers},
    };
    QStringList asked = QCoreApplication::arguments().mid(1);
    s_isShort = asked.removeAll(QStringLiteral("--short")) > 0;
    for (const auto& limit : limits) {
        if (!asked.isEmpty() && !asked.contains(limit.first))
            continue;
        std::printf("\n%s\n\n", qUtf8Printable(limit.first));
        limit.second();
        std::fflush(stdout);
    }
    return 0;
}
