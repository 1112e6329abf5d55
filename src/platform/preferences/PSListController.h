// SPDX-License-Identifier: Apache-2.0
/// @file
/// The base of a settings pane: a screen whose view is a grouped table, with a list of specifiers from a
/// property list.
#pragma once

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

#include <memory>
#include <string>
#include <vector>

namespace zorel {

class PSListController;

/// One entry of a specifier list: what a row of the pane is called and what kind of row it is.
struct PSSpecifier {
    std::string cell;       ///< kind of row ("PSGroupCell")
    std::string label;      ///< text of the row
    std::string identifier; ///< name of the row
    PSListController* target = nullptr;
};

/// Left out: showing the specifiers. A pane brings its own table contents, as the table's data source and
/// delegate.
class PSListController : public UIViewController, public UITableViewDataSource, public UITableViewDelegate {
public:
    /// Makes the table, as large as the screen, asking this object for everything.
    PSListController();
    ~PSListController() override;

    [[nodiscard]] UITableView& table() const { return *table_; }
    /// The pane's specifiers.
    [[nodiscard]] virtual const std::vector<PSSpecifier>& specifiers() = 0;
    /// Whether the specifiers are read anew when the pane comes back to the screen.
    [[nodiscard]] virtual bool shouldReloadSpecifiersOnResume() const { return true; }

protected:
    /// Reads "<name>.plist" of the bundle folder: a dictionary whose "items" is a list of dictionaries with
    /// "cell", "label" and "id". Entries that are no dictionaries are skipped; a missing or broken file gives
    /// an empty list.
    [[nodiscard]] static std::vector<PSSpecifier> loadSpecifiersFromPlistName(const std::string& name,
                                                                              PSListController* target);

private:
    std::unique_ptr<UITableView> table_;
};

} // namespace zorel
