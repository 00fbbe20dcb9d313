#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace tarvolt {

/// `font` with the strategy in which `text` is to be drawn.
using FontForText = QFont (*)(QFont font, const QString& text);

/// Draws each row of a view in the font for its text.
class NameDelegate final : public QStyledItemDelegate {
public:
    NameDelegate(FontForText fontForText, QObject* parent) : QStyledItemDelegate(parent), fontForText_(fontForText) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->font = fontForText_(option->font, option->text);
    }

private:
    const FontForText fontForText_;
};

} // namespace tarvolt
