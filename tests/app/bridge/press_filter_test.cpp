#include "app/bridge/press_filter.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace tarvolt {
namespace {

/// Counts the presses that reach it.
class Counter : public QObject {
public:
    bool event(QEvent* event) override {
        presses += event->type() == QEvent::KeyPress ? 1 : 0;
        return true;
    }

    int presses = 0;
};

class PressFilterTest : public ::testing::Test {
protected:
    void send(QEvent::Type type, int key, quint64 time, bool repeat = false) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(&counter, &event);
    }

    PressFilter filter;
    Counter counter;
};

TEST_F(PressFilterTest, DropsAPressRightAfterTheReleaseOfTheSameKey) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
        counter.presses = 0;
        send(QEvent::KeyPress, key, 1000);
        send(QEvent::KeyRelease, key, 1660);
        send(QEvent::KeyPress, key, 1660);
        send(QEvent::KeyRelease, key, 1700);
        send(QEvent::KeyPress, key, 1701);
        EXPECT_EQ(counter.presses, 1) << key;
    }
}

TEST_F(PressFilterTest, PassesTheNextDeliberatePress) {
    send(QEvent::KeyPress, Qt::Key_Return, 1000);
    send(QEvent::KeyRelease, Qt::Key_Return, 1050);
    send(QEvent::KeyPress, Qt::Key_Return, 1080);
    EXPECT_EQ(counter.presses, 2);
}

TEST_F(PressFilterTest, PassesTheFirstPressAndOtherKeys) {
    send(QEvent::KeyPress, Qt::Key_Return, 5);
    send(QEvent::KeyRelease, Qt::Key_Return, 6);
    send(QEvent::KeyPress, Qt::Key_Enter, 7);
    send(QEvent::KeyRelease, Qt::Key_A, 7);
    send(QEvent::KeyPress, Qt::Key_A, 7);
    EXPECT_EQ(counter.presses, 3);
}

TEST_F(PressFilterTest, DropsKnownRepetitions) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
        counter.presses = 0;
        send(QEvent::KeyPress, key, 1000);
        send(QEvent::KeyRelease, key, 1660, true);
        send(QEvent::KeyPress, key, 1660, true);
        EXPECT_EQ(counter.presses, 1) << key;
    }
}

TEST_F(PressFilterTest, JudgesKeysWithoutATimeByTheirArrival) {
    send(QEvent::KeyPress, Qt::Key_Return, 0);
    send(QEvent::KeyRelease, Qt::Key_Return, 0);
    send(QEvent::KeyPress, Qt::Key_Return, 0);
    EXPECT_EQ(counter.presses, 1);
    send(QEvent::KeyRelease, Qt::Key_Return, 0);
    QTest::qSleep(80);
    send(QEvent::KeyPress, Qt::Key_Return, 0);
    EXPECT_EQ(counter.presses, 2);
}

TEST_F(PressFilterTest, PassesEverySpaceOfTextTypedByAMachine) {
    for (quint64 time = 0; time < 50; time += 10) {
        send(QEvent::KeyPress, Qt::Key_Space, 1000 + time);
        send(QEvent::KeyRelease, Qt::Key_Space, 1001 + time);
        send(QEvent::KeyPress, Qt::Key_A, 1005 + time);
        send(QEvent::KeyRelease, Qt::Key_A, 1006 + time);
    }
    EXPECT_EQ(counter.presses, 10);
}

TEST_F(PressFilterTest, LetsOtherKeysRepeat) {
    send(QEvent::KeyPress, Qt::Key_Down, 1000);
    send(QEvent::KeyPress, Qt::Key_Down, 1660, true);
    EXPECT_EQ(counter.presses, 2);
}

TEST_F(PressFilterTest, KnowsWhetherAKeyOrTheMouseWasPressedLastInAWindow) {
    QQuickWindow window;
    const auto pressKey = [&](QObject* receiver) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QCoreApplication::sendEvent(receiver, &event);
    };
    EXPECT_FALSE(filter.lastPressWasKey());
    pressKey(&counter);
    EXPECT_FALSE(filter.lastPressWasKey()) << "a key in another window, as the folder panel's";
    pressKey(&window);
    EXPECT_TRUE(filter.lastPressWasKey());
    QMouseEvent click(QEvent::MouseButtonPress, {}, {}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &click);
    EXPECT_FALSE(filter.lastPressWasKey());
}

} // namespace
} // namespace tarvolt
