#include "app/bridge/log_model.h"

#include "app/bridge/qt_text.h"
#include "app/sections/log_texts.h"

namespace tarvolt {

LogModel::LogModel(MPCScanner& scanner)
    : entries_(scanner.logEntries.get()), locale_(scanner.services().locale), known_(entries_.size()),
      tell_(
          this, [this] { takeNewEntries(); }, scanner.logEntries) {}

void LogModel::takeNewEntries() {
    beginInsertRows({}, 0, static_cast<int>(entries_.size() - known_) - 1);
    known_ = entries_.size();
    endInsertRows();
    emit newsTold(displayString(entries_.front().message));
}

int LogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(known_);
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto& entry = entries_[entries_.size() - known_ + static_cast<std::size_t>(index.row())];
    switch (role) {
    case timeRole:
        return displayString(logTimeText(entry.timestamp, locale_.time));
    case messageRole:
        return displayString(entry.message);
    case isErrorRole:
        return entry.isError;
    case sentenceRole:
        // The message of a failure itself says what the colour shows.
        return singleLineString(entry.message + ", " + logTimeText(entry.timestamp, locale_.time));
    default:
        return {};
    }
}

QHash<int, QByteArray> LogModel::roleNames() const {
    return {{timeRole, "time"}, {messageRole, "message"}, {isErrorRole, "isError"}, {sentenceRole, "sentence"}};
}

} // namespace tarvolt
