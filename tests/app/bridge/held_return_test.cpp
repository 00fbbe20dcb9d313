#include "app/bridge/held_return.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

namespace tarvolt {
namespace {

/// Counts the presses that come through to it.
class Counter : public QObject {
public:
    bool event(QEvent* event) override {
        presses += event->type() == QEvent::KeyPress ? 1 : 0;
        return true;
    }

    int presses = 0;
};

class HeldReturnTest : public ::testing::Test {
protected:
    HeldReturnTest() { QCoreApplication::instance()->installEventFilter(&filter); }

    void send(QEvent::Type type, int key, quint64 time, bool repeat = false) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(&counter, &event);
    }

    HeldReturn filter;
    Counter counter;
};

TEST_F(HeldReturnTest, DropsAPressThatComesWithTheReleaseOfTheSameKey) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        counter.presses = 0;
        send(QEvent::KeyPress, key, 1000);
        send(QEvent::KeyRelease, key, 1660);
        send(QEvent::KeyPress, key, 1660);
        send(QEvent::KeyRelease, key, 1700);
        send(QEvent::KeyPress, key, 1701);
        EXPECT_EQ(counter.presses, 1) << key;
    }
}

TEST_F(HeldReturnTest, LetsAPersonsNextPressThrough) {
    send(QEvent::KeyPress, Qt::Key_Return, 1000);
    send(QEvent::KeyRelease, Qt::Key_Return, 1050);
    send(QEvent::KeyPress, Qt::Key_Return, 1080);
    EXPECT_EQ(counter.presses, 2);
}

TEST_F(HeldReturnTest, LetsTheFirstPressAndAnotherKeyThrough) {
    send(QEvent::KeyPress, Qt::Key_Return, 5);
    send(QEvent::KeyRelease, Qt::Key_Return, 6);
    send(QEvent::KeyPress, Qt::Key_Enter, 7);
    send(QEvent::KeyRelease, Qt::Key_A, 7);
    send(QEvent::KeyPress, Qt::Key_A, 7);
    EXPECT_EQ(counter.presses, 3);
}

TEST_F(HeldReturnTest, LeavesWhatIsKnownToBeARepetitionToTheControls) {
    send(QEvent::KeyRelease, Qt::Key_Return, 1000, true);
    send(QEvent::KeyPress, Qt::Key_Return, 1000, true);
    EXPECT_EQ(counter.presses, 1);
}

} // namespace
} // namespace tarvolt
