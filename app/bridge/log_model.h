#pragma once

#include "foundation/date_formatter.h"
#include "model/mpc_scanner.h"

#include <QAbstractListModel>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// The lines of a log, newest first. Reads the entries where they are: they are never shortened, and what is new
/// stands before what is known.
class LogModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    enum Role { timeRole = Qt::UserRole, messageRole, isErrorRole, sentenceRole };
    Q_ENUM(Role)

    /// `entries` outlive the model.
    LogModel(const MPCScanner::LogEntries& entries, DateFormatter timeFormatter, QObject* parent = nullptr);

    /// Inserts the rows of what came since the last call.
    void takeNewEntries();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    const MPCScanner::LogEntry& entryAt(int row) const;

    const MPCScanner::LogEntries& entries_;
    DateFormatter timeFormatter_;
    std::size_t known_ = 0;
};

} // namespace tarvolt
