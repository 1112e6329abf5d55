// SPDX-License-Identifier: Apache-2.0
#include "host/PickerModel.h"

#include "host/Host.h"
#include "platform/uikit/UILabel.h"

#include <algorithm>

namespace zorel {

int PickerModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QString PickerModel::textOfRow(int row) const {
    UIPickerView* picker = picker_.get();
    const auto* label = picker != nullptr ? dynamic_cast<UILabel*>(picker->viewForRow(row)) : nullptr;
    return label != nullptr ? QString::fromStdString(label->text()) : QString();
}

QVariant PickerModel::data(const QModelIndex& index, int role) const {
    return role == Qt::DisplayRole ? QVariant(textOfRow(index.row())) : QVariant();
}

void PickerModel::reload() {
    beginResetModel();
    rows_ = picker_.get() != nullptr ? picker_.get()->numberOfRows() : 0;
    endResetModel();
}

int PickerHandle::selectedRow() const {
    return view() != nullptr ? static_cast<UIPickerView*>(view())->selectedRow() : -1;
}

void PickerHandle::pick(int row) {
    if (view() != nullptr && row != selectedRow()) {
        host().syncClock();
        static_cast<UIPickerView*>(view())->userPicksRow(row);
        emit selectedRowChanged();
    }
}

void PickerHandle::turn(int rows) {
    if (model_.rowCount() > 0) {
        pick(std::clamp(selectedRow() + rows, 0, model_.rowCount() - 1));
    }
}

bool PickerHandle::seek(const QString& text) {
    constexpr int pause = 1000; ///< [ms]
    if (text.isEmpty() || !text.at(0).isPrint() || text.at(0).isSpace()) {
        return false;
    }
    typed_ = typing_.isValid() && typing_.elapsed() < pause ? typed_ + text : text;
    typing_.start();
    const int count = model_.rowCount();
    const int first = typed_ == text ? selectedRow() + 1 : selectedRow();
    for (int step = 0; step < count; ++step) {
        const int row = (first + step) % count;
        if (model_.textOfRow(row).startsWith(typed_, Qt::CaseInsensitive)) {
            pick(row);
            return true;
        }
    }
    return true;
}

} // namespace zorel
