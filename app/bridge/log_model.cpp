#include "app/bridge/log_model.h"

#include "app/bridge/qt_text.h"

#include <utility>

namespace tarvolt {

LogModel::LogModel(const MPCScanner::LogEntries& entries, DateFormatter timeFormatter, QObject* parent)
    : QAbstractListModel(parent), entries_(entries), timeFormatter_(std::move(timeFormatter)), known_(entries.size()) {}

void LogModel::takeNewEntries() {
    if (entries_.size() == known_) {
        return;
    }
    beginInsertRows({}, 0, static_cast<int>(entries_.size() - known_) - 1);
    known_ = entries_.size();
    endInsertRows();
}

const MPCScanner::LogEntry& LogModel::entryAt(int row) const {
    return entries_[entries_.size() - known_ + static_cast<std::size_t>(row)];
}

int LogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(known_);
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const MPCScanner::LogEntry& entry = entryAt(index.row());
    switch (role) {
    case timeRole:
        return displayString(timeFormatter_.text(entry.timestamp));
    case messageRole:
        return displayString(entry.message);
    case isErrorRole:
        return entry.isError;
    case sentenceRole:
        // What the colour shows, the message of a failure says itself.
        return singleLineString(entry.message + ", " + timeFormatter_.text(entry.timestamp));
    default:
        return {};
    }
}

QHash<int, QByteArray> LogModel::roleNames() const {
    return {{timeRole, "time"}, {messageRole, "message"}, {isErrorRole, "isError"}, {sentenceRole, "sentence"}};
}

} // namespace tarvolt
