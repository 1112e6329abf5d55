// SPDX-License-Identifier: Apache-2.0
/// @file
/// A table as one flat list: headers, rows and footers of all sections, for a list view that can show
/// sections without rows.
#pragma once

#include "host/ViewHandle.h"
#include "platform/uikit/UITableView.h"

#include <QAbstractListModel>
#include <QTimer>

#include <optional>
#include <vector>

namespace zorel {

/// The rows of a UITableView. A cell is asked for when its row comes on show and given back when it leaves.
class TableModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        kindRole = Qt::UserRole + 1, ///< "header", "row" or "footer"
        titleRole,                   ///< text of a header or footer
        textRole,                    ///< text of a row
        detailRole,                  ///< second text of a row, for the reader
        centredRole,
        disclosureRole,
        accessoryRole, ///< ViewHandle of a row's accessory view or of a header's own view
        heightRole,    ///< [pt]
        deletableRole,
        removingRole, ///< the row is about to be deleted and can still be kept
        firstRole,    ///< first row of its section
        lastRole,     ///< last row of its section
        sectionRole,
        rowRole,
        generationRole ///< number of the reload that the entry belongs to
    };

    TableModel(Host& host, UITableView& table);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    /// Asks the data source anew.
    void reload();
    /// Asks for the rows' second texts anew.
    void refreshDetails();

    Q_INVOKABLE void select(int section, int row);
    /// Deletes a row after some seconds; until then restore() keeps it. A reload from elsewhere keeps it too.
    Q_INVOKABLE void remove(int section, int row);
    Q_INVOKABLE void restore();
    /// Deletes now what is about to be deleted.
    void finishRemoval();
    /// A row has left the screen; ignored when the table has been reloaded since.
    Q_INVOKABLE void hide(int section, int row, int generation);

private:
    enum class Kind { header, row, footer };
    struct Entry {
        Kind kind = Kind::row;
        NSIndexPath path;
    };

    void collect();
    void tellRemoval();
    [[nodiscard]] QVariant headerData(UITableView& table, int section, int role) const;
    [[nodiscard]] QVariant footerData(UITableView& table, int section, int role) const;
    [[nodiscard]] QVariant rowData(UITableView& table, NSIndexPath path, int role) const;
    [[nodiscard]] QVariant cellData(UITableViewCell& cell, int role) const;

    Host& host_;
    UIWeak<UITableView> table_;
    std::vector<Entry> entries_;
    int generation_ = 0;
    std::optional<NSIndexPath> removal_;
    QTimer removalTimer_;
};

/// A table for QML.
class TableHandle : public ViewHandle {
    Q_OBJECT
    Q_PROPERTY(QObject* model READ model CONSTANT)
    Q_PROPERTY(bool grouped READ grouped CONSTANT)
    Q_PROPERTY(bool selectable READ selectable NOTIFY changed)

public:
    TableHandle(Host& host, UITableView& table) : ViewHandle(host, table), model_(host, table) {}
    [[nodiscard]] QObject* model() { return &model_; }
    [[nodiscard]] bool grouped() const;
    [[nodiscard]] bool selectable() const;
    void reload() { model_.reload(); }
    void finishRemoval() { model_.finishRemoval(); }
    void refreshDetails() { model_.refreshDetails(); }

private:
    TableModel model_;
};

} // namespace zorel
