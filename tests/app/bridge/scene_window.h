#pragma once

#include "app/bridge/window_bridge.h"
#include "app/content_view.h"
#include "tests/app/bridge/print_qt.h"
#include "tests/support/scene.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt::testing {

/// The real window over a disk in memory and queues drained by hand.
class SceneWindow {
public:
    SceneWindow() {
        previousHandler_ = qInstallMessageHandler(fail);
        scene.disk->addFolder("/p");
        view = ContentView::create(scene.services());
        bridge = std::make_unique<WindowBridge>(view);
        QObject::connect(&engine, &QQmlEngine::warnings, [](const QList<QQmlError>& warnings) {
            for (const auto& warning : warnings) {
                ADD_FAILURE() << warning.toString().toStdString();
            }
        });
        engine.addImportPath(QStringLiteral(":/qt/qml"));
        engine.setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(bridge.get())}});
        engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Tarvolt/ContentView.qml")));
        window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
        EXPECT_NE(window, nullptr);
        window->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
        settle();
    }

    SceneWindow(const SceneWindow&) = delete;
    SceneWindow& operator=(const SceneWindow&) = delete;
    ~SceneWindow() { qInstallMessageHandler(previousHandler_); }

    void addProject(const std::string& name, bool withDataFolder = true) {
        scene.disk->addFile("/p/" + name + ".xpj", "x");
        if (withDataFolder) {
            scene.disk->addFolder("/p/" + name + "_[ProjectData]");
        }
    }

    void addProjects(int count) {
        for (int i = 0; i < count; ++i) {
            addProject("Song " + std::to_string(i));
        }
    }

    /// Chooses the folder, scans it and waits until the window is at rest.
    void choose() {
        scene.panel->answer = "/p";
        bridge->selectFolder();
        QCoreApplication::processEvents();
        settle();
    }

    /// Runs what is due and waits until the window is at rest.
    void settle() {
        scene.settle();
        rest();
        scene.settle();
        rest();
    }

    /// Lets the toolkit catch up and every movement end, without running what is due.
    void rest() const {
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            window->grabWindow(); // Layouts and movements follow with the next frame.
        }
        EXPECT_TRUE(QTest::qWaitFor([this] { return !isMoving(window); })) << "a movement does not end";
        QCoreApplication::processEvents();
    }

    QQuickItem* find(const QString& name) const {
        const auto all = findAll(name);
        EXPECT_FALSE(all.empty()) << "no visible " << name.toStdString();
        return all.empty() ? nullptr : all.front();
    }

    /// The visible items of this object name, popups included, as they are read: from the top and from the left.
    std::vector<QQuickItem*> findAll(const QString& name) const {
        std::vector<QQuickItem*> found;
        collect(window->contentItem(), name, found);
        std::ranges::stable_sort(found, {}, [](QQuickItem* item) {
            const QPointF corner = boxOf(item).topLeft();
            return std::pair(corner.y(), corner.x());
        });
        return found;
    }

    /// The item called `name` inside another, visible or not.
    static QQuickItem* part(QQuickItem* item, const QString& name) {
        for (QQuickItem* child : item->childItems()) {
            if (QQuickItem* found = child->objectName() == name ? child : part(child, name)) {
                return found;
            }
        }
        return nullptr;
    }

    QRectF box(const QString& name) const { return boxOf(find(name)); }

    static QRectF boxOf(QQuickItem* item) { return item->mapRectToScene(QRectF(0, 0, item->width(), item->height())); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const { QTest::keyClick(window, key, modifiers); }

    void type(const QString& text) const {
        for (const QChar unit : text) {
            QKeyEvent pressed(QEvent::KeyPress, 0, Qt::NoModifier, unit);
            QCoreApplication::sendEvent(window, &pressed);
        }
    }

    void click(const QString& name) const {
        QTest::mouseClick(window, Qt::LeftButton, {}, box(name).center().toPoint());
    }

    QString focused() const {
        const QQuickItem* item = window->activeFocusItem();
        return item == nullptr ? QString() : item->objectName();
    }

    Scene scene;
    std::shared_ptr<ContentView> view;
    std::unique_ptr<WindowBridge> bridge;
    QQmlApplicationEngine engine;
    QQuickWindow* window = nullptr;

private:
    /// Fails the test with what the toolkit complains about.
    static void fail(QtMsgType, const QMessageLogContext&, const QString& message) {
        ADD_FAILURE() << "the toolkit says: " << message.toStdString();
    }

    /// Whether an animation that ends by itself runs in `object`.
    static bool isMoving(const QObject* object) {
        const bool ends = object->inherits("QQuickTransition") ||
                          (object->inherits("QQuickAbstractAnimation") && object->property("loops").toInt() > 0);
        if (ends && object->property("running").toBool()) {
            return true;
        }
        const auto* item = qobject_cast<const QQuickItem*>(object);
        return std::ranges::any_of(object->children(), isMoving) ||
               (item != nullptr && std::ranges::any_of(item->childItems(), isMoving));
    }

    static void collect(QQuickItem* item, const QString& name, std::vector<QQuickItem*>& found) {
        if (!item->isVisible()) {
            return;
        }
        if (item->objectName() == name) {
            found.push_back(item);
        }
        for (QQuickItem* child : item->childItems()) {
            collect(child, name, found);
        }
    }

    QtMessageHandler previousHandler_ = nullptr;
};

} // namespace tarvolt::testing
