#pragma once

#include "app/bridge/tell_once.h"
#include "model/mpc_scanner.h"

#include <QAbstractListModel>
#include <QtQmlIntegration/qqmlintegration.h>

namespace tarvolt {

/// The lines of a scanner's log, newest first. New lines are inserted in the next turn of the event loop, once for all
/// of a turn. Reads the entries in place: none is ever removed, and new ones come before those already known.
/// Main thread.
class LogModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

public:
    enum Role { timeRole = Qt::UserRole, messageRole, isErrorRole, sentenceRole };

    /// `scanner` must outlive the model.
    explicit LogModel(MPCScanner& scanner);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    /// The newest line; a screen reader should announce it immediately.
    void newsTold(const QString& message);

private:
    void takeNewEntries();

    const MPCScanner::LogEntries& entries_;
    const UserLocale& locale_;
    std::size_t known_;
    TellOnce tell_;
};

} // namespace tarvolt
