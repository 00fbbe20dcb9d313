#pragma once

#include "foundation/uuid.h"
#include "model/mpc_project.h"

#include <QAbstractListModel>
#include <QtQmlIntegration/qqmlintegration.h>

#include <optional>
#include <string>
#include <vector>

namespace tarvolt {

/// The listed projects, with the texts of their rows.
class ProjectListModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    enum Role {
        nameRole = Qt::UserRole,
        symbolRole,
        fileCountRole,
        sizeRole,
        hasDataFolderRole,
        renamedRole,
        sentenceRole,
        detailsSentenceRole,
        buttonSentenceRole,
    };
    Q_ENUM(Role)

    /// `locale` is the one of counts and sizes.
    explicit ProjectListModel(std::string locale, QObject* parent = nullptr);

    /// Shows `projects`. The same records in the same order leave the rows as they are.
    void setProjects(std::vector<MPCProject> projects);

    /// Highlights the row of the project with this identity, if it is listed, and no other.
    void setRenamed(std::optional<UUID> renamed);

    /// The record that row `row` shows, or none.
    std::optional<MPCProject> projectAt(int row) const;

    /// The row of the project with this name, or -1.
    int rowOf(const std::string& baseName) const;

    /// The first row that shows this name, or -1.
    Q_INVOKABLE int rowShowing(const QString& name) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::string locale_;
    std::vector<MPCProject> projects_;
    std::optional<UUID> renamed_;
};

} // namespace tarvolt
