// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHand.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QMenu>
#include <QStyleHints>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <map>

// They define words such as None and Bool: last.
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <xcb/xproto.h>

struct CHand::SServer
{
    SServer() = default;
    ~SServer()
    {
        if (display)
            XCloseDisplay(display);
    }
    Q_DISABLE_COPY(SServer)

    // A connection of its own, as that of another program.
    Display* const display = XOpenDisplay(nullptr);
    const Atom bell = display ? XInternAtom(display, "HALVEX_TEST_BELL", False) : 0;
};

namespace {

constexpr std::chrono::seconds longestWait{20};
constexpr std::chrono::milliseconds retryAfter{10};
constexpr unsigned int leftButton = 1;
constexpr unsigned int wheelUp = 4;
constexpr unsigned int wheelDown = 5;

KeySym symbolOf(int key)
{
    static const std::map<int, KeySym> named{
        {Qt::Key_Escape, XK_Escape}, {Qt::Key_Tab, XK_Tab},   {Qt::Key_Return, XK_Return},
        {Qt::Key_Delete, XK_Delete}, {Qt::Key_Left, XK_Left}, {Qt::Key_Right, XK_Right},
        {Qt::Key_Up, XK_Up},         {Qt::Key_Down, XK_Down},
    };
    const auto found = named.find(key);
    if (found != named.end())
        return found->second;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return XK_F1 + KeySym(key - Qt::Key_F1);
    // Those of characters are their codes; that of a letter is the small one's.
    return QChar(key).toLower().unicode();
}

} // namespace

CHand::CHand()
    : m_server(std::make_unique<SServer>())
{
    m_bell.create();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

CHand::~CHand() = default;

bool CHand::isThere()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return false;
    const SServer server;
    int ignored = 0;
    return server.display && XTestQueryExtension(server.display, &ignored, &ignored, &ignored, &ignored);
}

bool CHand::giveFocus(QWidget& window)
{
    if (!QTest::qWaitForWindowExposed(&window))
        return false;
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

void CHand::moveTo(const QWidget& widget, QPoint point)
{
    addMove(widget, point);
    run();
}

void CHand::click(const QWidget& widget, QPoint point)
{
    addMove(widget, point);
    addStep([this] {
        pressButton(leftButton, true);
        pressButton(leftButton, false);
    });
    run();
}

void CHand::click(const QWidget& widget)
{
    click(widget, widget.rect().center());
}

void CHand::doubleClick(const QWidget& widget, QPoint point)
{
    addMove(widget, point);
    // In one step: however busy the program is, no time passes in between.
    addStep([this] {
        for (const bool isDown : {true, false, true, false})
            pressButton(leftButton, isDown);
    });
    run();
}

void CHand::drag(const QWidget& from, QPoint start, const QWidget& to, QPoint end, Qt::KeyboardModifiers modifiers)
{
    addMove(from, start);
    addStep([this, modifiers] {
        pressModifiers(modifiers, true);
        pressButton(leftButton, true);
    });
    const QPoint way = to.mapToGlobal(end) - from.mapToGlobal(start);
    constexpr int parts = 4;
    for (int i = 1; i < parts; ++i)
        addMove(from, start + way * i / parts);
    addMove(to, end);
    addStep([this, modifiers] {
        pressButton(leftButton, false);
        pressModifiers(modifiers, false);
    });
    run();
}

void CHand::turnWheel(int notches)
{
    for (int i = 0; i < std::abs(notches); ++i) {
        addStep([this, button = notches > 0 ? wheelUp : wheelDown] {
            pressButton(button, true);
            pressButton(button, false);
        });
    }
    run();
}

void CHand::choose(const QWidget& widget, QPoint point, const QList<QAction*>& items)
{
    addMove(widget, point);
    const auto clickHere = [this] {
        pressButton(leftButton, true);
        pressButton(leftButton, false);
    };
    addStep(clickHere);
    for (QAction* const item : items) {
        m_steps.emplace_back([this, item] { return goToItem(item); });
        addStep(clickHere);
    }
    run();
}

void CHand::type(const QString& text)
{
    for (const QChar character : text)
        addStep([this, character] { strike(character.unicode(), Qt::NoModifier); });
    run();
}

void CHand::press(const QKeySequence& keys)
{
    constexpr int modifierMask = int(Qt::KeyboardModifierMask);
    addStep([this, stroke = keys[0]] {
        strike(symbolOf(stroke & ~modifierMask), Qt::KeyboardModifiers(stroke & modifierMask));
    });
    run();
}

void CHand::addStep(const std::function<void()>& act)
{
    m_steps.emplace_back([act] {
        act();
        return true;
    });
}

void CHand::addMove(const QWidget& widget, QPoint point)
{
    const QPoint place = widget.mapToGlobal(point);
    // From beside: with the last click in the same place the next one would be a double click.
    const int beside = 2 * QGuiApplication::styleHints()->mouseDoubleClickDistance();
    addStep([this, place, beside] { movePointer(place + QPoint(beside, beside)); });
    addStep([this, place] { movePointer(place); });
}

// To an item of the menu that is open; false while there is none with it.
bool CHand::goToItem(QAction* item)
{
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu || !menu->actions().contains(item) || !menu->windowHandle()->isExposed())
        return false;
    movePointer(menu->mapToGlobal(menu->actionGeometry(item).center()));
    return true;
}

// From beside: a menu takes no click from a mouse that has not moved over it.
void CHand::movePointer(QPoint place)
{
    XTestFakeMotionEvent(m_server->display, -1, place.x() + 1, place.y() + 1, CurrentTime);
    XTestFakeMotionEvent(m_server->display, -1, place.x(), place.y(), CurrentTime);
}

void CHand::pressButton(unsigned int button, bool isDown)
{
    XTestFakeButtonEvent(m_server->display, button, isDown ? True : False, CurrentTime);
}

void CHand::pressKey(unsigned long symbol, bool isDown)
{
    XTestFakeKeyEvent(m_server->display, XKeysymToKeycode(m_server->display, symbol), isDown ? True : False,
                      CurrentTime);
}

void CHand::pressModifiers(Qt::KeyboardModifiers modifiers, bool areDown)
{
    if (modifiers & Qt::ControlModifier)
        pressKey(XK_Control_L, areDown);
    if (modifiers & Qt::AltModifier)
        pressKey(XK_Alt_L, areDown);
    if (modifiers & Qt::ShiftModifier)
        pressKey(XK_Shift_L, areDown);
}

// Adds Shift where the keyboard needs it.
void CHand::strike(unsigned long symbol, Qt::KeyboardModifiers modifiers)
{
    const KeyCode code = XKeysymToKeycode(m_server->display, symbol);
    if (XkbKeycodeToKeysym(m_server->display, code, 0, 0) != symbol)
        modifiers |= Qt::ShiftModifier;
    pressModifiers(modifiers, true);
    pressKey(symbol, true);
    pressKey(symbol, false);
    pressModifiers(modifiers, false);
}

// A step may open a menu or begin a drag, and with it an event loop within which the others are done.
void CHand::run()
{
    const QDeadlineTimer deadline(longestWait);
    QTimer watch; // in those loops, too
    QObject::connect(&watch, &QTimer::timeout, &m_context, [this, deadline] {
        if (!deadline.hasExpired() || m_steps.empty())
            return;
        qWarning("the menu did not come, or what was done did not arrive");
        m_steps.clear();
        m_isRinging = false;
        if (QWidget* const popup = QApplication::activePopupWidget())
            popup->close();
    });
    watch.start(retryAfter);
    doNext();
    while (!m_steps.empty() || m_isRinging)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void CHand::doNext()
{
    if (m_steps.empty())
        return;
    if (!m_steps.front()()) {
        QTimer::singleShot(retryAfter, &m_context, [this] { doNext(); });
        return;
    }
    m_steps.pop_front();
    ring();
}

// The server keeps the order: when the bell has come, so has what was done before.
void CHand::ring()
{
    m_isRinging = true;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = m_bell.winId();
    event.xclient.message_type = m_server->bell;
    event.xclient.format = 32;
    XSendEvent(m_server->display, event.xclient.window, False, NoEventMask, &event);
    XFlush(m_server->display);
}

bool CHand::nativeEventFilter(const QByteArray&, void* message, long*)
{
    constexpr int kindMask = 0x7f; // without the mark of what a program has sent
    const auto* const event = static_cast<const xcb_client_message_event_t*>(message);
    if ((event->response_type & kindMask) != XCB_CLIENT_MESSAGE || event->type != m_server->bell)
        return false;
    // What came before it is read by now, and handled before the next timer is.
    QTimer::singleShot(0, &m_context, [this] {
        m_isRinging = false;
        doNext();
    });
    return true;
}
