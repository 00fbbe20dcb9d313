#pragma once

#include "app/bridge/qt_text.h"
#include "app/bridge/sheet_bridge.h"
#include "app/bridge/tell_once.h"
#include "app/content_view.h"

#include <QAbstractListModel>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvolt {

/// The listed projects with the texts of their rows, the search text, and the row that gets the focus after a rename.
/// The rows follow the state in the next turn of the event loop, once for all changes of a turn. Main thread.
class ProjectListModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY changed)
    Q_PROPERTY(bool showsSearchBar READ showsSearchBar NOTIFY changed)

public:
    /// `sheet` is what `beginRename` opens; it must outlive the model.
    ProjectListModel(std::shared_ptr<ContentView> view, SheetBridge& sheet);

    QString searchText() const { return fieldString(view_->searchText.get()); }
    bool showsSearchBar() const { return view_->showsSearchBar(); }
    void setSearchText(const QString& text);

    /// Opens the sheet for the project that row `row` shows.
    Q_INVOKABLE void beginRename(int row);

    /// The first row that shows this name, or -1.
    Q_INVOKABLE int rowShowing(const QString& name) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void changed();

    /// How many projects a search has found; a screen reader should announce it immediately.
    void newsTold(const QString& text);

    /// The scan after a rename has ended, and no sheet, alert or panel is open any more. `row` shows the new name; it
    /// is -1 if the name is not listed, and then `hiddenBySearch` says whether the search text is why.
    void renamedProjectListed(int row, bool hiddenBySearch);

private:
    void refresh();
    void leadToRenamed();

    const std::shared_ptr<ContentView> view_;
    SheetBridge& sheet_;
    const std::string locale_; ///< of counts and sizes
    std::vector<MPCProject> projects_;
    bool rowsOutdated_ = false; ///< filtering a long list again takes longer than opening a sheet
    std::optional<UUID> renamed_;
    bool searched_ = false;
    TellOnce tell_;
    std::vector<Subscription> subscriptions_;
};

} // namespace tarvolt
