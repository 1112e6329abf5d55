// SPDX-License-Identifier: Apache-2.0
#include "host/TableModel.h"

#include "host/Host.h"

namespace zorel {

namespace {

constexpr double kDefaultHeaderHeight = 36.0;
constexpr int kRemovalMilliseconds = 6000;

QVariant text(const std::string& value) {
    return QString::fromStdString(value);
}

} // namespace

TableModel::TableModel(Host& host, UITableView& table) : host_(host), table_(&table) {
    removalTimer_.setSingleShot(true);
    connect(&removalTimer_, &QTimer::timeout, this, &TableModel::finishRemoval);
    collect();
}

void TableModel::collect() {
    entries_.clear();
    ++generation_;
    UITableView* table = table_.get();
    if (table == nullptr) {
        return;
    }
    const bool grouped = table->style() == UITableViewStyle::grouped;
    for (int section = 0; section < table->numberOfSections(); ++section) {
        if (grouped && table->heightForHeader(section) != 0.0) {
            entries_.push_back({Kind::header, {section, -1}});
        }
        for (int row = 0; row < table->numberOfRowsInSection(section); ++row) {
            entries_.push_back({Kind::row, {section, row}});
        }
        if (grouped && !table->titleForFooter(section).empty()) {
            entries_.push_back({Kind::footer, {section, -1}});
        }
    }
}

void TableModel::reload() {
    removal_.reset();
    removalTimer_.stop();
    beginResetModel();
    collect();
    endResetModel();
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QHash<int, QByteArray> TableModel::roleNames() const {
    return {{kindRole, "entryKind"},       {titleRole, "title"},
            {textRole, "rowText"},         {detailRole, "detail"},
            {centredRole, "centred"},      {disclosureRole, "disclosure"},
            {accessoryRole, "accessory"},  {heightRole, "entryHeight"},
            {deletableRole, "deletable"},  {removingRole, "removing"},
            {firstRole, "firstInSection"}, {lastRole, "lastInSection"},
            {sectionRole, "section"},      {rowRole, "row"},
            {generationRole, "generation"}};
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    UITableView* table = table_.get();
    if (table == nullptr || !index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const Entry& entry = entries_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case kindRole:
        return entry.kind == Kind::row
                   ? QStringLiteral("row")
                   : (entry.kind == Kind::header ? QStringLiteral("header") : QStringLiteral("footer"));
    case sectionRole:
        return entry.path.section;
    case rowRole:
        return entry.path.row;
    case generationRole:
        return generation_;
    default:
        break;
    }
    switch (entry.kind) {
    case Kind::header:
        return headerData(*table, entry.path.section, role);
    case Kind::footer:
        return footerData(*table, entry.path.section, role);
    case Kind::row:
        break;
    }
    return rowData(*table, entry.path, role);
}

QVariant TableModel::headerData(UITableView& table, int section, int role) const {
    switch (role) {
    case titleRole:
        return text(table.titleForHeader(section));
    case accessoryRole:
        return QVariant::fromValue(host_.handle(table.viewForHeader(section)));
    case heightRole: {
        const double height = table.heightForHeader(section);
        return height == UITableViewAutomaticDimension ? kDefaultHeaderHeight : height;
    }
    default:
        return {};
    }
}

QVariant TableModel::footerData(UITableView& table, int section, int role) const {
    return role == titleRole ? text(table.titleForFooter(section)) : QVariant();
}

QVariant TableModel::rowData(UITableView& table, NSIndexPath path, int role) const {
    switch (role) {
    case heightRole:
        return table.heightForRow(path);
    case deletableRole:
        return table.canDeleteRow(path);
    case removingRole:
        return removal_ == path;
    case detailRole:
        return text(table.detailForRow(path));
    case firstRole:
        return path.row == 0;
    case lastRole:
        return path.row + 1 == table.numberOfRowsInSection(path.section);
    default:
        break;
    }
    UITableViewCell* cell = table.cellForRowAtIndexPath(path);
    return cell != nullptr ? cellData(*cell, role) : QVariant();
}

QVariant TableModel::cellData(UITableViewCell& cell, int role) const {
    switch (role) {
    case textRole:
        return text(cell.textLabel().text());
    case centredRole:
        return cell.textLabel().textAlignment() == UITextAlignment::center;
    case disclosureRole:
        return cell.accessoryType() == UITableViewCellAccessoryType::disclosureIndicator;
    case accessoryRole:
        return QVariant::fromValue(host_.handle(cell.accessoryView()));
    default:
        return {};
    }
}

void TableModel::refreshDetails() {
    if (!entries_.empty()) {
        emit dataChanged(index(0), index(rowCount() - 1), {detailRole});
    }
}

void TableModel::select(int section, int row) {
    if (UITableView* table = table_.get(); table != nullptr) {
        host_.syncClock();
        table->userSelectsRow({section, row});
    }
}

void TableModel::remove(int section, int row) {
    UITableView* table = table_.get();
    if (table == nullptr) {
        return;
    }
    // Another row that waits for its deletion goes first; those below it move up.
    const std::optional<NSIndexPath> earlier = removal_;
    const int before = table->numberOfRowsInSection(section);
    finishRemoval();
    const bool moved = earlier && earlier->section == section && earlier->row < row;
    const int gone = moved ? before - table->numberOfRowsInSection(section) : 0;
    removal_ = NSIndexPath{section, row - gone};
    removalTimer_.start(kRemovalMilliseconds);
    tellRemoval();
}

void TableModel::restore() {
    removal_.reset();
    removalTimer_.stop();
    tellRemoval();
}

void TableModel::finishRemoval() {
    UITableView* table = table_.get();
    const std::optional<NSIndexPath> path = std::exchange(removal_, std::nullopt);
    removalTimer_.stop();
    if (table != nullptr && path) {
        host_.syncClock();
        table->userDeletesRow(*path);
        tellRemoval();
    }
}

void TableModel::tellRemoval() {
    if (!entries_.empty()) {
        emit dataChanged(index(0), index(rowCount() - 1), {removingRole});
    }
}

void TableModel::hide(int section, int row, int generation) {
    if (UITableView* table = table_.get(); table != nullptr && generation == generation_) {
        table->endDisplayingRow({section, row});
    }
}

bool TableHandle::grouped() const {
    return view() != nullptr && static_cast<UITableView*>(view())->style() == UITableViewStyle::grouped;
}

bool TableHandle::selectable() const {
    return view() != nullptr && static_cast<UITableView*>(view())->allowsSelection();
}

} // namespace zorel
