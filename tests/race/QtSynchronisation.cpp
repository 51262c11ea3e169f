// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Tells ThreadSanitizer how Qt synchronises threads.
//
// The distribution's Qt is not instrumented: the detector sees neither the futexes in its mutexes nor the lock around a
// thread's posted events, and would take every hand-over through them for a race. So this program's own definitions of
// the functions below come before Qt's, for our code, which calls them through the dynamic linker. Each adds the one
// edge that Qt's documentation promises and calls the original:
//
//   what happened before a mutex was unlocked    is seen by who locks it next
//   what happened before a signal was emitted    is seen by the slot that the queued call reaches
//   what happened before a function was queued   is seen by it when it runs, and by whoever destroys it then
//   what happened before deleteLater()           is seen by the destructor
//   what happened before a thread finished       is seen by who waited for it
//   what happened before a runnable was started  is seen by it when it runs
//
// Queued signals are told apart by their sender: between two emissions of one sender the detector may take the later
// one for the one that a slot has seen.
//
// A race that these edges do not order is still reported, which the seeded races beside this file show.

#include <Halvex/graph/CNodeData.h>

#include <QtCore/private/qobject_p.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QMetaObject>
#include <QMutex>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>
#include <QThreadStorage>
#include <QWaitCondition>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

#include <cstring>
#include <iterator>
#include <map>
#include <mutex>
#include <new>
#include <utility>

extern "C" {
void AnnotateIgnoreReadsBegin(const char* file, int line);
void AnnotateIgnoreReadsEnd(const char* file, int line);
}

namespace {

/// Qt's own definition of a member function, by its mangled name.
template <typename Function>
Function original(const char* name)
{
    void* const address = dlsym(RTLD_NEXT, name);
    Function function = nullptr;
    static_assert(sizeof address <= sizeof function,
                  "a pointer to a member function begins with the function's address");
    std::memcpy(&function, &address, sizeof address);
    return function;
}

// Where an object's edges are kept. Not at its own address: it may be gone before what it sent arrives, and the
// detector forgets what it knows of freed memory. Two objects in one place at most hide a race between them.
void* edgesOf(const QObject* object)
{
    static quint64 places[65536];
    return &places[(reinterpret_cast<quintptr>(object) >> 4) % std::size(places)];
}

thread_local QObject* t_sender = nullptr; // of the emission that is under way in this thread

// What a queued call carries is written while the signal is emitted and read by the slot; this comes in between.
void* constructArgument(void* where, const void* copy)
{
    using Plugin::Halvex::CNodeDataPtr;
    auto* const argument =
        copy ? new (where) CNodeDataPtr(*static_cast<const CNodeDataPtr*>(copy)) : new (where) CNodeDataPtr;
    if (t_sender)
        __tsan_release(edgesOf(t_sender));
    return argument;
}

// Before the library does it, as it would but for the constructor.
int registerDataPtr()
{
    using Plugin::Halvex::CNodeDataPtr;
    const QMetaType::TypeFlags flags(QtPrivate::QMetaTypeTypeFlags<CNodeDataPtr>::Flags);
    return QMetaType::registerNormalizedType("Plugin::Halvex::CNodeDataPtr",
                                             QtMetaTypePrivate::QMetaTypeFunctionHelper<CNodeDataPtr>::Destruct,
                                             &constructArgument, int(sizeof(CNodeDataPtr)), flags, nullptr);
}

/// A function that is queued, run and destroyed in this order, in whichever threads: whoever lets go of it last, the
/// one that queued it or the one that ran it, destroys it.
class CQueuedFunction : public QtPrivate::QSlotObjectBase
{
public:
    explicit CQueuedFunction(QtPrivate::QSlotObjectBase* function)
        : QSlotObjectBase(&operate)
        , m_function(function)
    {
        __tsan_release(this);
    }

private:
    static void operate(int operation, QSlotObjectBase* base, QObject* receiver, void** arguments, bool*)
    {
        auto* const self = static_cast<CQueuedFunction*>(base);
        __tsan_acquire(self);
        if (operation == Call) {
            self->m_function->call(receiver, arguments);
            __tsan_release(self);
        } else if (operation == Destroy) {
            self->m_function->destroyIfLastRef();
            delete self;
        }
    }

    QtPrivate::QSlotObjectBase* m_function;
};

/// Kept in a thread's storage, which Qt empties when finished() was emitted and before anybody's wait() ends.
class CThreadEnd
{
public:
    explicit CThreadEnd(const QThread* thread)
        : m_thread(thread)
    {
    }
    ~CThreadEnd() { __tsan_release(edgesOf(m_thread)); }
    Q_DISABLE_COPY(CThreadEnd)

private:
    const QThread* m_thread;
};

QThreadStorage<CThreadEnd*>& threadEnds()
{
    static QThreadStorage<CThreadEnd*> ends;
    return ends;
}

/// Runs \a runnable in \a pool in its place. A runnable that deletes itself does not come here.
class CPooledRunnable : public QRunnable
{
public:
    CPooledRunnable(const QThreadPool* pool, QRunnable* runnable)
        : m_pool(pool)
        , m_runnable(runnable)
    {
        Q_ASSERT(!runnable->autoDelete());
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_all[runnable] = this;
    }

    void run() override
    {
        {
            const std::lock_guard<std::mutex> lock(s_mutex); // the edge that is wanted
            s_all.erase(m_runnable);
        }
        m_runnable->run();
        __tsan_release(edgesOf(m_pool));
    }

    /// Calls \a take with what stands in a pool for \a runnable; false if nothing does.
    template <typename Take>
    static bool takeBack(const QRunnable* runnable, const Take& take)
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        const auto found = s_all.find(runnable);
        if (found == s_all.end() || !take(found->second))
            return false;
        delete found->second;
        s_all.erase(found);
        return true;
    }

private:
    const QThreadPool* m_pool;
    QRunnable* m_runnable;
    static inline std::mutex s_mutex;
    static inline std::map<const QRunnable*, CPooledRunnable*> s_all;
};

bool onEventDelivered(void** arguments)
{
    // Qt, uninstrumented, has written the event.
    AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
    auto* const receiver = static_cast<QObject*>(arguments[0]);
    const auto* const event = static_cast<const QEvent*>(arguments[1]);
    const bool isDeletion = event->type() == QEvent::DeferredDelete;
    const QObject* source = isDeletion ? receiver : nullptr;
    if (event->type() == QEvent::MetaCall)
        source = static_cast<const QAbstractMetaCallEvent*>(event)->sender();
    AnnotateIgnoreReadsEnd(__FILE__, __LINE__);

    if (source)
        __tsan_acquire(edgesOf(source));
    return false;
}

const int dataPtrType = registerDataPtr();
const bool isRegistered = QInternal::registerCallback(QInternal::EventNotifyCallback, &onEventDelivered);

} // namespace

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto qtLock = original<void (QMutex::*)()>("_ZN6QMutex4lockEv");
    (this->*qtLock)();
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto qtTryLock = original<bool (QMutex::*)(int)>("_ZN6QMutex7tryLockEi");
    const bool isLocked = (this->*qtTryLock)(timeout);
    if (isLocked)
        __tsan_acquire(this);
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto qtUnlock = original<void (QMutex::*)()>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    (this->*qtUnlock)();
}

bool QWaitCondition::wait(QMutex* mutex, unsigned long time)
{
    static const auto qtWait =
        original<bool (QWaitCondition::*)(QMutex*, unsigned long)>("_ZN14QWaitCondition4waitEP6QMutexm");
    __tsan_release(mutex);
    const bool isWoken = (this->*qtWait)(mutex, time);
    __tsan_acquire(mutex);
    return isWoken;
}

bool QWaitCondition::wait(QMutex* mutex, QDeadlineTimer deadline)
{
    static const auto qtWait = original<bool (QWaitCondition::*)(QMutex*, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    __tsan_release(mutex);
    const bool isWoken = (this->*qtWait)(mutex, deadline);
    __tsan_acquire(mutex);
    return isWoken;
}

void QMetaObject::activate(QObject* sender, const QMetaObject* metaObject, int signal, void** arguments)
{
    using Activate = void (*)(QObject*, const QMetaObject*, int, void**);
    static const auto qtActivate =
        reinterpret_cast<Activate>(dlsym(RTLD_NEXT, "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv"));
    QObject* const outerSender = std::exchange(t_sender, sender);
    __tsan_release(edgesOf(sender));
    qtActivate(sender, metaObject, signal, arguments);
    t_sender = outerSender;
}

bool QMetaObject::invokeMethodImpl(QObject* receiver, QtPrivate::QSlotObjectBase* function, Qt::ConnectionType type,
                                   void* result)
{
    using Invoke = bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*);
    static const auto qtInvoke = reinterpret_cast<Invoke>(
        dlsym(RTLD_NEXT,
              "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"));
    return qtInvoke(receiver, new CQueuedFunction(function), type, result);
}

void QObject::deleteLater()
{
    static const auto qtDeleteLater = original<void (QObject::*)()>("_ZN7QObject11deleteLaterEv");
    __tsan_release(edgesOf(this));
    (this->*qtDeleteLater)();
}

void QThread::start(Priority priority)
{
    static const auto qtStart = original<void (QThread::*)(Priority)>("_ZN7QThread5startENS_8PriorityE");
    // Runs in the thread.
    connect(this, &QThread::finished, [this] { threadEnds().setLocalData(new CThreadEnd(this)); });
    (this->*qtStart)(priority);
}

bool QThread::wait(unsigned long time)
{
    static const auto qtWait = original<bool (QThread::*)(unsigned long)>("_ZN7QThread4waitEm");
    const bool isFinished = (this->*qtWait)(time);
    if (isFinished)
        __tsan_acquire(edgesOf(this));
    return isFinished;
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto qtWait = original<bool (QThread::*)(QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool isFinished = (this->*qtWait)(deadline);
    if (isFinished)
        __tsan_acquire(edgesOf(this));
    return isFinished;
}

void QThreadPool::start(QRunnable* runnable, int priority)
{
    static const auto qtStart = original<void (QThreadPool::*)(QRunnable*, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    (this->*qtStart)(new CPooledRunnable(this, runnable), priority);
}

bool QThreadPool::tryTake(QRunnable* runnable)
{
    static const auto qtTryTake = original<bool (QThreadPool::*)(QRunnable*)>("_ZN11QThreadPool7tryTakeEP9QRunnable");
    return CPooledRunnable::takeBack(runnable, [this](QRunnable* pooled) { return (this->*qtTryTake)(pooled); });
}

bool QThreadPool::waitForDone(int milliseconds)
{
    static const auto qtWait = original<bool (QThreadPool::*)(int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool isDone = (this->*qtWait)(milliseconds);
    if (isDone)
        __tsan_acquire(edgesOf(this));
    return isDone;
}
