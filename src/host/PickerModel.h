// SPDX-License-Identifier: Apache-2.0
/// @file
/// A wheel's rows as a list of texts.
#pragma once

#include "host/ViewHandle.h"
#include "platform/uikit/UIPickerView.h"

#include <QAbstractListModel>
#include <QElapsedTimer>

namespace zorel {

/// The texts of a UIPickerView's row views, asked for when they come on show.
class PickerModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit PickerModel(UIPickerView& picker) : picker_(&picker), rows_(picker.numberOfRows()) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return {{Qt::DisplayRole, "rowText"}}; }
    [[nodiscard]] QString textOfRow(int row) const;
    void reload();

private:
    UIWeak<UIPickerView> picker_;
    int rows_;
};

/// A wheel for QML.
class PickerHandle : public ViewHandle {
    Q_OBJECT
    Q_PROPERTY(QObject* model READ model CONSTANT)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)
    Q_PROPERTY(QString selectedText READ selectedText NOTIFY selectedRowChanged)

public:
    PickerHandle(Host& host, UIPickerView& picker) : ViewHandle(host, picker), model_(picker) {}
    [[nodiscard]] QObject* model() { return &model_; }
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] QString selectedText() const { return model_.textOfRow(selectedRow()); }
    /// The wheel has come to rest on a row.
    Q_INVOKABLE void pick(int row);
    /// Goes some rows on (or back), to the last (or first) one at most.
    Q_INVOKABLE void turn(int rows);
    /// Goes to the next row that begins with what has been typed within a second.
    Q_INVOKABLE bool seek(const QString& text);
    void reload() { model_.reload(); }

signals:
    /// Also sent when the program sets the row that is selected already: a wheel in motion turns back to it.
    void selectedRowChanged();

private:
    PickerModel model_;
    QString typed_;
    QElapsedTimer typing_;
};

} // namespace zorel
