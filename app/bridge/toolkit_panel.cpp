#include "app/bridge/toolkit_panel.h"

#include "app/bridge/panel_places.h"
#include "foundation/localized.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QQmlProperty>
#include <QScreen>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>
#include <QWindow>

namespace tarvolt {

namespace {

// In heights of a line of text.
constexpr int panelWidth = 40;
constexpr int panelHeight = 28;
constexpr int placesWidth = 10;

// An impatient user presses the key that opened the panel again within this many milliseconds.
constexpr int impatience = 600;

// The panel's empty row, under the field and beside the buttons.
constexpr int refusalRow = 3;

// In per cent: how much darker than the window Fusion draws an edge.
constexpr int edgeShade = 140;

} // namespace

ToolkitPanel::ToolkitPanel(const FolderPanelSettings& settings, QWindow* window, FontForText fontForText)
    : field_(findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))), refusal_(new QLabel(this)),
      lookIn_(findChild<QComboBox*>(QStringLiteral("lookInCombo"))),
      lists_({findChild<QAbstractItemView*>(QStringLiteral("sidebar")), findChild<QTreeView*>(), lookIn_->view(),
              field_->completer()->popup()}) {
    setFileMode(Directory);
    setOption(ShowDirsOnly);
    setOption(ReadOnly);
    // Assistive technology cannot tell the folders of the other view apart.
    setViewMode(Detail);
    setSidebarUrls(panelPlaces());
    setWindowTitle(QString::fromStdString(settings.prompt));
    hideButtons();
    replaceButtons();
    layOut(QString::fromStdString(settings.message));
    colour(window);
    setUpNames(fontForText);
    connect(field_, &QLineEdit::textChanged, this, [this] { setRefusal({}); });
    winId();
    windowHandle()->setTransientParent(window);
    // Like a modal panel, it comes to the front whenever the window does.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this, window](const QWindow* active) {
        if (window != nullptr && active == window) {
            raise();
            activateWindow();
        }
    });
    pressed_.start();
}

std::optional<std::filesystem::path> ToolkitPanel::folder() const {
    if (result() != Accepted) {
        return std::nullopt;
    }
    return std::filesystem::path(QFile::encodeName(namedFolder()).toStdString());
}

/// selectedFiles() would read a name with quotation marks as several names.
QString ToolkitPanel::namedFolder() const {
    QString name = field_->text();
    if (name == QStringLiteral("~") || name.startsWith(QStringLiteral("~/"))) {
        name.replace(0, 1, QDir::homePath());
    }
    return QDir::cleanPath(directory().absoluteFilePath(name));
}

void ToolkitPanel::accept() {
    if (field_->text().isEmpty() && pressed_.restart() < impatience) {
        return;
    }
    if (QFileInfo(namedFolder()).isDir()) {
        done(Accepted);
        return;
    }
    setRefusal(QString::fromStdString(localized("ToolkitPanel", "There is no folder of that name.")));
    field_->setFocus();
    field_->selectAll();
}

/// Screen readers speak it as the description of the focused field.
void ToolkitPanel::setRefusal(const QString& text) {
    refusal_->setText(text);
    refusal_->setVisible(!text.isEmpty());
    field_->setAccessibleDescription(text);
}

void ToolkitPanel::hideButtons() {
    for (const char* name :
         {"newFolderButton", "listModeButton", "detailModeButton", "fileTypeLabel", "fileTypeCombo"}) {
        findChild<QWidget*>(QLatin1String(name))->hide();
    }
}

/// The toolkit disables its own button for every name that selectedFiles() does not find.
void ToolkitPanel::replaceButtons() {
    auto* box = findChild<QDialogButtonBox*>();
    box->setStandardButtons(QDialogButtonBox::NoButton);
    box->addButton(windowTitle(), QDialogButtonBox::AcceptRole);
    box->addButton(QDialogButtonBox::Cancel)->setIcon({});
    // Plain arrows take the colour of the text, so they suit light and dark; a style's pictograms do not.
    const QList<std::pair<const char*, Qt::ArrowType>> arrows{
        {"backButton", Qt::LeftArrow}, {"forwardButton", Qt::RightArrow}, {"toParentButton", Qt::UpArrow}};
    for (const auto& [name, arrow] : arrows) {
        findChild<QToolButton*>(QLatin1String(name))->setArrowType(arrow);
    }
}

void ToolkitPanel::layOut(const QString& message) {
    const int line = fontMetrics().height();
    const QSize room = screen()->availableSize() - QSize(2 * line, 3 * line); // for the window's frame
    resize(QSize(panelWidth * line, panelHeight * line).boundedTo(room));
    findChild<QSplitter*>()->setSizes({placesWidth * line, (panelWidth - placesWidth) * line});
    auto* list = findChild<QTreeView*>();
    list->setHeaderHidden(true);
    list->header()->setSectionResizeMode(QHeaderView::Stretch);
    for (int column = 1; column < list->model()->columnCount(); ++column) {
        list->hideColumn(column);
    }
    auto* heading = new QLabel(message, this);
    const int margin = line * 3 / 4;
    heading->setContentsMargins(margin, margin, margin, 0);
    heading->setTextFormat(Qt::PlainText);
    layout()->setMenuBar(heading);
    refusal_->setObjectName(QStringLiteral("refusal"));
    refusal_->hide();
    static_cast<QGridLayout*>(layout())->addWidget(refusal_, refusalRow, 1);
}

/// Read-only disables renaming, deleting and creating. A folder dragged to a file manager would still be moved there.
void ToolkitPanel::setUpNames(FontForText fontForText) {
    auto* delegate = new NameDelegate(fontForText, this);
    for (QAbstractItemView* list : lists_) {
        list->setContextMenuPolicy(Qt::PreventContextMenu);
        list->setDragDropMode(QAbstractItemView::NoDragDrop);
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list->setItemDelegate(delegate);
    }
    const auto draw = [this, fontForText](QWidget* widget) {
        return [=, this](const QString& text) { widget->setFont(fontForText(font(), text)); };
    };
    lookIn_->setIconSize({0, 0});
    draw(lookIn_)(lookIn_->currentText());
    connect(lookIn_, &QComboBox::currentTextChanged, lookIn_, draw(lookIn_));
    connect(field_, &QLineEdit::textChanged, field_, draw(field_));
}

void ToolkitPanel::colour(QWindow* window) {
    if (window == nullptr) {
        return;
    }
    const auto ofWindow = [window](const char* role) {
        return QQmlProperty::read(window, QStringLiteral("palette.") + QLatin1String(role)).value<QColor>();
    };
    QPalette colours = palette();
    colours.setColor(QPalette::Highlight, ofWindow("highlight"));
    colours.setColor(QPalette::HighlightedText, ofWindow("highlightedText"));
    setPalette(colours);
    // A field uses this role for nothing but its edge.
    QPalette edged = colours;
    edged.setColor(QPalette::Window, ofWindow("mid").lighter(edgeShade));
    field_->setPalette(edged);
    // At a fractional scale a list paints over some sides of the edge that the style draws.
    const QString edge = QStringLiteral("QAbstractItemView { border: 1px solid %1 }").arg(ofWindow("mid").name());
    for (QAbstractItemView* list : lists_) {
        list->setPalette(colours);
        list->setStyleSheet(list == lookIn_->view() ? QString() : edge); // That one has a frame.
    }
}

} // namespace tarvolt
