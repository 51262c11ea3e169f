// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QAbstractNativeEventFilter>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QWindow>

#include <deque>
#include <functional>
#include <memory>

class QAction;
class QWidget;

/**
 * Mouse and keyboard of the X server that the windows are on. What it does comes to the program by the server, on the
 * way on which all comes that a person does.
 *
 * \code
 * CHand hand;
 * hand.giveFocus(window);
 * hand.click(*field);
 * hand.type("blur");
 * hand.press(QKeySequence::Undo);
 * \endcode
 *
 * Each function returns when the program has handled all of it; what comes of it may come later, so tests wait for that
 * with QTRY_*. What opens a menu in an event loop of its own is for choose(): click() would not return.
 *
 * Points are of the widget. Characters are those of a US keyboard. Threads: the main thread. It needs Qt's platform
 * "xcb" and the extension XTest, see isThere().
 */
class CHand : private QAbstractNativeEventFilter
{
public:
    CHand();
    ~CHand() override;
    Q_DISABLE_COPY(CHand)

    /// Whether there is an X server that takes what a hand does.
    static bool isThere();

    /// Waits until the window is to be seen, and directs the keyboard to it: nobody else does without a window manager.
    /// False if it does not get it.
    bool giveFocus(QWidget& window);

    void moveTo(const QWidget& widget, QPoint point);
    void click(const QWidget& widget, QPoint point);
    void click(const QWidget& widget); ///< In its middle.
    void doubleClick(const QWidget& widget, QPoint point);

    /// Presses the left button at one point, and lets it go at the other; meanwhile it holds \a modifiers down.
    void drag(const QWidget& from, QPoint start, const QWidget& to, QPoint end, Qt::KeyboardModifiers modifiers = {});

    /// Up is positive. The pointer stays.
    void turnWheel(int notches);

    /// Clicks there, and then, in the menus that open one after the other, on each of \a items. If a menu does not come
    /// it warns and does no more.
    void choose(const QWidget& widget, QPoint point, const QList<QAction*>& items);

    void type(const QString& text);

    /// Presses the keys of a combination together; of one that has several strokes, the first.
    void press(const QKeySequence& keys);

private:
    /// Returns false if it is to be tried again.
    using Step = std::function<bool()>;

    bool nativeEventFilter(const QByteArray& type, void* message, long* result) override;
    void addStep(const std::function<void()>& act);
    void run();
    void doNext();
    void ring();
    void addMove(const QWidget& widget, QPoint point);
    bool goToItem(QAction* item);
    void movePointer(QPoint place);
    void pressButton(unsigned int button, bool isDown);
    void pressKey(unsigned long symbol, bool isDown);
    void pressModifiers(Qt::KeyboardModifiers modifiers, bool areDown);
    void strike(unsigned long symbol, Qt::KeyboardModifiers modifiers);

    struct SServer;
    const std::unique_ptr<SServer> m_server;
    std::deque<Step> m_steps; // of what is being done
    bool m_isRinging = false;
    QWindow m_bell; // never shown: it gets a message behind what a step has done
    QObject m_context;
};
