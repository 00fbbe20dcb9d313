#pragma once

#include "app/bridge/log_model.h"
#include "app/bridge/press_filter.h"
#include "app/bridge/project_list_model.h"
#include "app/content_view.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <optional>
#include <vector>

namespace tarvolt {

/// What the QML sees of the main view: its state as properties, its actions as calls. What opens, closes or enables
/// something follows at once after each call; the lists, and whatever changed by itself, in the next turn of the event
/// loop, once for all changes of a turn. Main thread.
class ViewBridge final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

    Q_PROPERTY(Area area READ area NOTIFY headerChanged)
    Q_PROPERTY(bool hasFolder READ hasFolder NOTIFY headerChanged)
    Q_PROPERTY(QString folderPath READ folderPath NOTIFY headerChanged)
    Q_PROPERTY(QString projectCountText READ projectCountText NOTIFY headerChanged)
    Q_PROPERTY(bool scanning READ scanning NOTIFY headerChanged)
    Q_PROPERTY(bool showsSearchBar READ showsSearchBar NOTIFY headerChanged)
    Q_PROPERTY(bool logEmpty READ logEmpty NOTIFY headerChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(tarvolt::ProjectListModel* projects READ projects CONSTANT)
    Q_PROPERTY(tarvolt::LogModel* log READ log CONSTANT)

    Q_PROPERTY(bool sheetOpen READ sheetOpen NOTIFY sheetOpenChanged)
    Q_PROPERTY(QString currentNameText READ currentNameText NOTIFY sheetChanged)
    Q_PROPERTY(QString newName READ newName WRITE setNewName NOTIFY sheetChanged)
    Q_PROPERTY(bool offersRename READ offersRename NOTIFY sheetChanged)
    Q_PROPERTY(QString oldFileName READ oldFileName NOTIFY sheetChanged)
    Q_PROPERTY(QString newFileName READ newFileName NOTIFY sheetChanged)
    Q_PROPERTY(bool hasDataFolder READ hasDataFolder NOTIFY sheetChanged)
    Q_PROPERTY(QString oldFolderName READ oldFolderName NOTIFY sheetChanged)
    Q_PROPERTY(QString newFolderName READ newFolderName NOTIFY sheetChanged)

    Q_PROPERTY(bool alertOpen READ alertOpen NOTIFY alertOpenChanged)
    Q_PROPERTY(QString alertMessage READ alertMessage NOTIFY alertMessageChanged)
    Q_PROPERTY(bool panelOpen READ panelOpen NOTIFY panelOpenChanged)

public:
    /// The language of the views wants capitals here.
    enum Area { FolderPicker, EmptyState, ProjectList }; // NOLINT(readability-identifier-naming)
    Q_ENUM(Area)

    explicit ViewBridge(std::shared_ptr<ContentView> view, Services services, QObject* parent = nullptr);

    Area area() const { return header_.area; }
    bool hasFolder() const { return header_.hasFolder; }
    QString folderPath() const { return header_.folderPath; }
    QString projectCountText() const { return header_.projectCount; }
    bool scanning() const { return header_.scanning; }
    bool showsSearchBar() const { return header_.searchBar; }
    bool logEmpty() const { return header_.logEmpty; }
    QString searchText() const { return searchText_; }
    ProjectListModel* projects() { return &projects_; }
    LogModel* log() { return &log_; }

    bool sheetOpen() const { return sheetOpen_; }
    QString currentNameText() const { return sheet_.currentName; }
    QString newName() const { return sheet_.newName; }
    bool offersRename() const { return sheet_.offersRename; }
    QString oldFileName() const { return sheet_.oldFile; }
    QString newFileName() const { return sheet_.newFile; }
    bool hasDataFolder() const { return sheet_.hasDataFolder; }
    QString oldFolderName() const { return sheet_.oldFolder; }
    QString newFolderName() const { return sheet_.newFolder; }

    bool alertOpen() const { return alertOpen_; }
    QString alertMessage() const { return alertMessage_; }
    bool panelOpen() const { return panelOpen_; }

    void setSearchText(const QString& text);
    void setNewName(const QString& text);

    /// Asks for a folder; returns when the panel is closed. This and a rescan do nothing behind what is open already.
    Q_INVOKABLE void selectFolder();
    Q_INVOKABLE void withdrawPanel();
    Q_INVOKABLE void rescan();

    /// Opens the sheet for the project in row `row`; nothing while a sheet, the alert or the folder panel is open.
    Q_INVOKABLE void beginRename(int row);
    Q_INVOKABLE void cancelRename();

    /// The field was submitted: renames whatever the Rename button's state. Handed on only while the sheet is open for
    /// the project it shows and no alert stands over it, so that a second press finds nothing to do.
    Q_INVOKABLE void submitNewName();

    /// The Rename button: the same, only while it is enabled.
    Q_INVOKABLE void pressRename();
    Q_INVOKABLE void dismissAlert();

    /// Whether a rename has gone well and the list does not show its result yet.
    Q_INVOKABLE bool awaitsList() const;

    /// Whether the person goes by keys rather than by the mouse.
    Q_INVOKABLE bool goesByKeys() const { return presses_.goesByKeys(); }

    /// The log's width nearest to `wanted` beside the list.
    Q_INVOKABLE double allowedLogWidth(double wanted, double available) const;

    /// The width of a preview line's old name, see preview_widths.h.
    Q_INVOKABLE double oldNameWidth(double oldNatural, double newNatural, double available) const;

signals:
    void headerChanged();
    void searchTextChanged();
    void sheetChanged();
    void sheetOpenChanged();
    void alertOpenChanged();
    void alertMessageChanged();
    void panelOpenChanged();

    /// What a person who cannot see the window should hear at once: the newest line of the log, or how many projects a
    /// search has found.
    void newsTold(const QString& text);

    /// The scan after a rename has ended, and nothing stands over the list any more: `row` shows the new name, or is -1
    /// where it is not listed, perhaps because the search hides it.
    void renamedProjectListed(int row, bool hiddenBySearch);

private:
    struct Header {
        Area area = FolderPicker;
        bool hasFolder = false;
        QString folderPath;
        QString projectCount;
        bool scanning = false;
        bool searchBar = false;
        bool logEmpty = true;
        friend bool operator==(const Header&, const Header&) = default;
    };
    struct Sheet {
        QString currentName;
        QString newName;
        bool offersRename = false;
        QString oldFile;
        QString newFile;
        bool hasDataFolder = false;
        QString oldFolder;
        QString newFolder;
        friend bool operator==(const Sheet&, const Sheet&) = default;
    };

    void observe();
    void refreshSoon();
    void refresh();
    void deriveState();
    void followRename();
    Header makeHeader() const;
    Sheet makeSheet(const MPCProject& project) const;
    bool isCovered() const;
    bool acceptsSubmit() const;
    void performRename();

    const std::shared_ptr<ContentView> view_;
    const Services services_;
    ProjectListModel projects_;
    LogModel log_;
    PressFilter presses_;

    Header header_;
    QString searchText_;
    std::optional<MPCProject> shownProject_; ///< the sheet's; kept while it fades away
    Sheet sheet_;
    bool sheetOpen_ = false;
    bool alertOpen_ = false;
    bool panelOpen_ = false;
    QString alertMessage_;

    bool refreshPosted_ = false;
    bool listDirty_ = false;
    bool searched_ = false;

    std::vector<Subscription> subscriptions_;
};

} // namespace tarvolt
