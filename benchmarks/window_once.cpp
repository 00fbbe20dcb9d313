// tarvolt_window_once FOLDER [spinner]: the window in a process of its own, with the projects of a folder and 10,000
// lines in the log. Prints a "name value" a line: the peak memory in MiB, the milliseconds from a key in the search
// field to the picture of the new list and, if asked for, the share of a core that the spinner takes.
#include "app/bridge/qt_main_queue.h"
#include "app/bridge/window_bridge.h"
#include "app/content_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

Q_IMPORT_QML_PLUGIN(TarvoltPlugin)

namespace {

using namespace tarvolt;

/// Answers with the folder from the command line.
class GivenFolder final : public FolderPanel {
public:
    explicit GivenFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}
    std::optional<std::filesystem::path> runModal(const FolderPanelSettings&) override { return folder_; }
    void withdraw() override {}

private:
    const std::filesystem::path folder_;
};

std::int64_t steadyNanoseconds() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double peakMebibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void print(std::string_view name, double value) {
    std::cout << name << ' ' << value << std::endl;
}

void runUntil(const std::function<bool()>& done) {
    while (!done()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void runFor(int milliseconds) {
    bool over = false;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, QCoreApplication::instance(), [&] { over = true; });
    runUntil([&] { return over; });
}

/// The median milliseconds from a key to the first picture of the list that it leads to.
double keyToPicture(QQuickWindow& window, ProjectListModel& projects) {
    constexpr int rounds = 21;
    bool listed = false;
    bool drawn = false;
    QObject::connect(&projects, &QAbstractItemModel::modelReset, &window, [&] { listed = true; });
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&] { drawn = listed; });
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        const bool typing = round % 2 == 0;
        listed = drawn = false;
        const auto begun = steadyNanoseconds();
        QKeyEvent key(QEvent::KeyPress, typing ? Qt::Key_1 : Qt::Key_Backspace, Qt::NoModifier,
                      typing ? QStringLiteral("1") : QString());
        QCoreApplication::sendEvent(&window, &key);
        runUntil([&] { return drawn; });
        times.push_back(static_cast<double>(steadyNanoseconds() - begun) / 1e6);
        runFor(30);
    }
    window.disconnect();
    std::ranges::nth_element(times, times.begin() + rounds / 2);
    return times[rounds / 2];
}

/// The processor time of this process over the next seconds, as a share of one core.
double processorShare() {
    constexpr int seconds = 2;
    const std::clock_t before = std::clock();
    runFor(seconds * 1000);
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / seconds;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return EXIT_FAILURE;
    }
    const std::filesystem::path folder = argv[1];
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const auto mainQueue = std::make_shared<QtMainQueue>();
    const QApplication application(argc, argv);
    const auto view = ContentView::create({.fileManager = makePosixFileManager(),
                                           .mainQueue = mainQueue,
                                           .backgroundQueue = makeBackgroundQueue(),
                                           .folderPanel = std::make_shared<GivenFolder>(folder)});
    WindowBridge bridge(view);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    QQmlComponent content(&engine, QUrl(QStringLiteral("qrc:/qt/qml/Tarvolt/ContentView.qml")));
    const std::unique_ptr<QObject> object(
        content.createWithInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&bridge)}}));
    auto* window = qobject_cast<QQuickWindow*>(object.get());
    bridge.selectFolder();
    runUntil([&] { return view->contentArea() == ContentArea::projectList && !bridge.scanning(); });
    for (int line = 0; line < 10'000; ++line) {
        view->scanner->log("A line of the activity log, as long as most of them", false);
    }
    runFor(500);
    print("mebibytes", peakMebibytes());
    window->findChild<QQuickItem*>(QStringLiteral("searchField"))->forceActiveFocus();
    runFor(200);
    print("key", keyToPicture(*window, *bridge.projects()));
    if (argc > 2) {
        view->scanner->isScanning.set(true);
        view->scanner->projects.set({}); // as a scan does
        runFor(500);
        print("spinner", processorShare());
    }
    std::_Exit(EXIT_SUCCESS);
}
