// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a screen reader finds in a window.
#pragma once

#include <QAccessible>
#include <QStringList>
#include <QWindow>

namespace zorel::test {

/// "role: name" of everything visible that has a name, from top to bottom, with "checked" and "focused" where
/// it is so.
class Reader {
public:
    explicit Reader(QWindow& window) { visit(QAccessible::queryAccessibleInterface(&window)); }

    [[nodiscard]] const QStringList& lines() const { return lines_; }
    [[nodiscard]] bool says(const QString& line) const { return lines_.contains(line); }

private:
    static QString roleName(QAccessible::Role role) {
        switch (role) {
        case QAccessible::Button:
            return "button";
        case QAccessible::CheckBox:
            return "check box";
        case QAccessible::ComboBox:
            return "combo box";
        case QAccessible::RadioButton:
            return "radio button";
        case QAccessible::ListItem:
            return "item";
        case QAccessible::List:
            return "list";
        case QAccessible::Heading:
            return "heading";
        case QAccessible::EditableText:
            return "edit";
        case QAccessible::AlertMessage:
            return "alert";
        default:
            return "other";
        }
    }
    void visit(QAccessibleInterface* part) {
        if (part == nullptr || part->state().invisible) {
            return;
        }
        const QString name = part->text(QAccessible::Name);
        // A list holds the keyboard together with its current row.
        const bool focused = part->state().focused && part->role() != QAccessible::List;
        if (!name.isEmpty()) {
            lines_ << roleName(part->role()) + ": " + name + (part->state().checked ? ", checked" : "") +
                          (focused ? ", focused" : "");
        }
        for (int index = 0; index < part->childCount(); ++index) {
            visit(part->child(index));
        }
    }

    QStringList lines_;
};

} // namespace zorel::test
