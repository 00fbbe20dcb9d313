#include "app/bridge/toolkit_panel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QQmlProperty>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>
#include <QWindow>

#include <algorithm>
#include <array>

namespace tarvolt {

namespace {

// In heights of a line of text.
constexpr int panelWidth = 40;
constexpr int panelHeight = 28;
constexpr int placesWidth = 10;

// A second press of what opened the panel may come so late, in milliseconds.
constexpr int impatience = 600;

/// Where a mounted drive or card is, if this line of /proc/self/mounts tells of one. Network drives, whose servers may
/// not answer, are left out, for the panel looks at each place when it opens.
QString mountedDrive(const QByteArray& line) {
    const QList<QByteArray> words = line.split(' ');
    QByteArray place = words.value(1);
    const std::array folders{"/media/", "/run/media/", "/mnt"};
    if (!words.front().startsWith("/dev/") ||
        std::ranges::none_of(folders, [&](const char* folder) { return place.startsWith(folder); })) {
        return {};
    }
    place.replace("\\040", " ").replace("\\011", "\t").replace("\\012", "\n").replace("\\134", "\\");
    return QFile::decodeName(place);
}

/// Home, and every mounted drive and card.
QList<QUrl> places() {
    QList<QUrl> found{QUrl::fromLocalFile(QDir::homePath())};
    QFile mounts(QStringLiteral("/proc/self/mounts"));
    if (mounts.open(QFile::ReadOnly)) {
        for (const QByteArray& line : mounts.readAll().split('\n')) {
            const QString place = mountedDrive(line);
            const QUrl url = QUrl::fromLocalFile(place);
            if (!place.isEmpty() && !found.contains(url)) {
                found.append(url);
            }
        }
    }
    return found;
}

} // namespace

ToolkitPanel::ToolkitPanel(const FolderPanelSettings& settings, QWindow* window) {
    setFileMode(settings.canChooseFiles ? ExistingFile : Directory);
    setOption(ShowDirsOnly, settings.canChooseDirectories && !settings.canChooseFiles);
    setOption(ReadOnly);
    // Of the toolkit's two lists, the only one whose folders assistive technology can tell apart.
    setViewMode(Detail);
    setSidebarUrls(places());
    const QString prompt = QString::fromStdString(settings.prompt);
    setWindowTitle(prompt);
    setLabelText(Accept, prompt);
    takeAwayWhatChanges();
    layOut();
    showLine(QString::fromStdString(settings.message));
    colour(window);
    winId();
    windowHandle()->setTransientParent(window);
    // It comes to the front again as a modal panel would.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this, window](const QWindow* active) {
        if (window != nullptr && active == window) {
            raise();
            activateWindow();
        }
    });
    opened_.start();
}

std::optional<std::filesystem::path> ToolkitPanel::folder() const {
    if (result() != Accepted || selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return std::filesystem::path(QFile::encodeName(selectedFiles().constFirst()).toStdString());
}

void ToolkitPanel::accept() {
    const auto* typed = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (typed != nullptr && typed->text().isEmpty() && opened_.elapsed() < impatience) {
        return;
    }
    if (QFileInfo(selectedFiles().value(0)).isDir()) {
        QFileDialog::accept();
    } else if (auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        field->selectAll();
    }
}

/// Read-only greys out what renames, deletes and creates. A dragged folder would still be moved by the file manager
/// that it is dropped on.
void ToolkitPanel::takeAwayWhatChanges() {
    for (QAbstractItemView* view : findChildren<QAbstractItemView*>()) {
        view->setContextMenuPolicy(Qt::PreventContextMenu);
        view->setDragDropMode(QAbstractItemView::NoDragDrop);
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    }
    for (const char* name :
         {"newFolderButton", "listModeButton", "detailModeButton", "fileTypeLabel", "fileTypeCombo"}) {
        if (auto* control = findChild<QWidget*>(QLatin1String(name))) {
            control->hide();
        }
    }
}

void ToolkitPanel::layOut() {
    const int line = fontMetrics().height();
    const QSize room = screen()->availableSize() - QSize(2 * line, 3 * line); // for the window's frame
    resize(QSize(panelWidth * line, panelHeight * line).boundedTo(room));
    if (auto* splitter = findChild<QSplitter*>()) {
        splitter->setSizes({placesWidth * line, (panelWidth - placesWidth) * line});
    }
    if (auto* list = findChild<QTreeView*>(QStringLiteral("treeView"))) {
        list->setHeaderHidden(true);
        list->header()->setSectionResizeMode(QHeaderView::Stretch);
        for (int column = 1; column < list->model()->columnCount(); ++column) {
            list->hideColumn(column);
        }
    }
}

void ToolkitPanel::showLine(const QString& message) {
    auto* line = new QLabel(message, this);
    const int margin = fontMetrics().height() * 3 / 4;
    line->setContentsMargins(margin, margin, margin, 0);
    line->setTextFormat(Qt::PlainText);
    layout()->setMenuBar(line);
}

void ToolkitPanel::colour(QWindow* window) {
    QPalette colours = palette();
    if (window != nullptr) {
        colours.setColor(QPalette::Highlight, QQmlProperty::read(window, "palette.highlight").value<QColor>());
        colours.setColor(QPalette::HighlightedText,
                         QQmlProperty::read(window, "palette.highlightedText").value<QColor>());
    }
    setPalette(colours);
    for (const QLineEdit* field : findChildren<QLineEdit*>()) {
        if (field->completer() != nullptr) {
            field->completer()->popup()->setPalette(colours);
        }
    }
    for (const QComboBox* box : findChildren<QComboBox*>()) {
        box->view()->setPalette(colours);
    }
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setIcon({});
    }
}

} // namespace tarvolt
