#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace tarvolt {

/// `font` with the strategy in which `text` is to be drawn.
using FontForText = QFont (*)(QFont font, const QString& text);

/// Draws the text of each row in the font for it, without an icon; rows are half a line higher than their text.
class NameDelegate final : public QStyledItemDelegate {
public:
    NameDelegate(FontForText fontForText, QObject* parent) : QStyledItemDelegate(parent), fontForText_(fontForText) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 2);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features &= ~QStyleOptionViewItem::HasDecoration;
        option->icon = {};
        if (option->state & QStyle::State_Selected) {
            option->state &= ~QStyle::State_HasFocus; // Its frame would make the selection paler.
        }
        option->font = fontForText_(option->font, option->text);
    }

private:
    const FontForText fontForText_;
};

} // namespace tarvolt
