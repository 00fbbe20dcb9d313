#pragma once

#include "app/bridge/qt_text.h"
#include "app/bridge/tell_once.h"
#include "app/content_view.h"
#include "app/sections/sheet_texts.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <optional>

namespace tarvolt {

/// The rename sheet and the alert over it, as QML sees them. Every property is computed from the state, but the project
/// is kept while the sheet fades out. `textsChanged` and `openChanged` are emitted immediately after each call made
/// here, and otherwise in the next turn of the event loop, once for all changes of a turn. Main thread.
class SheetBridge final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

    Q_PROPERTY(bool open READ open NOTIFY openChanged)
    Q_PROPERTY(QString currentName READ currentName NOTIFY textsChanged)
    Q_PROPERTY(QString newName READ newName WRITE setNewName NOTIFY textsChanged)
    Q_PROPERTY(bool offersRename READ offersRename NOTIFY textsChanged)
    Q_PROPERTY(QString oldFileName READ oldFileName NOTIFY textsChanged)
    Q_PROPERTY(QString newFileName READ newFileName NOTIFY textsChanged)
    Q_PROPERTY(QString oldFolderName READ oldFolderName NOTIFY textsChanged)
    Q_PROPERTY(QString newFolderName READ newFolderName NOTIFY textsChanged)
    Q_PROPERTY(bool alertOpen READ alertOpen NOTIFY openChanged)
    Q_PROPERTY(QString alertMessage READ alertMessage NOTIFY textsChanged)

public:
    explicit SheetBridge(std::shared_ptr<ContentView> view);

    bool open() const { return view_->renamingProject.get().has_value(); }
    QString currentName() const { return shown() ? singleLineString(shown()->baseName()) : QString(); }
    QString newName() const { return fieldString(view_->newName.get()); }
    bool offersRename() const { return shown() && view_->offersRename(*shown()); }
    QString oldFileName() const { return singleLineString(previewRow(0).oldText); }
    QString newFileName() const { return singleLineString(previewRow(0).newText); }
    QString oldFolderName() const { return singleLineString(previewRow(1).oldText); } ///< empty without a data folder
    QString newFolderName() const { return singleLineString(previewRow(1).newText); }
    bool alertOpen() const { return view_->showError.get(); }
    QString alertMessage() const { return displayString(view_->alertMessage()); }

    /// Opens the sheet for `project`. Ignored while a sheet, alert or panel is open.
    void begin(const MPCProject& project);

    /// Stores what was typed. Ignored while the sheet is closed.
    void setNewName(const QString& text);

    /// Return in the field: renames even while the Rename button is disabled. Ignored unless the sheet is open with no
    /// alert over it, so a second press does nothing.
    Q_INVOKABLE void submitNewName();

    /// The Rename button: the same, but only while the button is enabled.
    Q_INVOKABLE void pressRename();
    Q_INVOKABLE void cancelRename();
    Q_INVOKABLE void dismissAlert();

signals:
    void textsChanged();

    /// Emitted after `textsChanged`, so that the sheet and the alert open with their texts in place.
    void openChanged();

    /// A rename has succeeded. The scan that follows it has not started yet.
    void renamed();

private:
    const std::optional<MPCProject>& shown() const;
    PreviewRow previewRow(std::size_t index) const;

    const std::shared_ptr<ContentView> view_;
    std::optional<MPCProject> fading_; ///< the project shown when the sheet closed last
    const Subscription beforeClosing_;
    TellOnce tell_;
};

} // namespace tarvolt
