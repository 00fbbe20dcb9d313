#pragma once

#include "app/content_view.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <optional>
#include <vector>

namespace tarvolt {

struct PreviewRow;

/// The rename sheet and the alert over it, as QML sees them. Everything is computed from the state, but for the sheet's
/// project, which stays while the sheet fades away. The two signals come at once after each call here, and for whatever
/// changes by itself in the next turn of the event loop, once for all changes of a turn. Main thread.
class SheetBridge final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

    Q_PROPERTY(bool open READ open NOTIFY openChanged)
    Q_PROPERTY(QString currentNameText READ currentNameText NOTIFY textsChanged)
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
    QString currentNameText() const;
    QString newName() const;
    bool offersRename() const { return shown() && view_->offersRename(*shown()); }
    QString oldFileName() const;
    QString newFileName() const;
    QString oldFolderName() const; ///< empty without a data folder
    QString newFolderName() const;
    bool alertOpen() const { return view_->showError.get(); }
    QString alertMessage() const;

    /// Opens the sheet for `project`; nothing while something stands over the window.
    void begin(const MPCProject& project);

    /// Takes what was typed, while the sheet is open.
    void setNewName(const QString& text);

    /// The field was submitted: renames whatever the Rename button's state. Handed on only while the sheet is open and
    /// no alert stands over it, so that a second press finds nothing to do.
    Q_INVOKABLE void submitNewName();

    /// The Rename button: the same, only while it is enabled.
    Q_INVOKABLE void pressRename();
    Q_INVOKABLE void cancelRename();
    Q_INVOKABLE void dismissAlert();

signals:
    void textsChanged();

    /// After `textsChanged`, so that what opens has its texts.
    void openChanged();

    /// A rename has gone well, and its scan is still to come.
    void renamed();

private:
    void tell();
    const std::optional<MPCProject>& shown() const;
    PreviewRow previewRow(std::size_t index) const;

    const std::shared_ptr<ContentView> view_;
    std::optional<MPCProject> fading_; ///< the project that the sheet was closed for last
    std::vector<Subscription> subscriptions_;
};

} // namespace tarvolt
