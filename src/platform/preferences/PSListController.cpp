// SPDX-License-Identifier: Apache-2.0
#include "platform/preferences/PSListController.h"

#include "platform/foundation/Locations.h"
#include "platform/foundation/PropertyList.h"
#include "platform/uikit/UIScreen.h"

namespace zorel {

namespace {

std::string textOf(const PropertyList& dictionary, std::string_view key) {
    const PropertyList* entry = dictionary.find(key);
    const std::string* text = entry != nullptr ? entry->text() : nullptr;
    return text != nullptr ? *text : std::string();
}

} // namespace

PSListController::PSListController()
    : table_(std::make_unique<UITableView>(UIScreen::mainScreen().bounds(), UITableViewStyle::grouped)) {
    table_->setDataSource(this);
    table_->setDelegate(this);
    setView(table_.get());
}

PSListController::~PSListController() = default;

std::vector<PSSpecifier> PSListController::loadSpecifiersFromPlistName(const std::string& name,
                                                                       PSListController* target) {
    const auto list = PropertyList::read(Locations::current().bundle + "/" + name + ".plist");
    const PropertyList* items = list ? list->find("items") : nullptr;
    const PropertyArray* entries = items != nullptr ? items->array() : nullptr;
    std::vector<PSSpecifier> specifiers;
    if (entries == nullptr) {
        return specifiers;
    }
    for (const PropertyList& entry : *entries) {
        if (entry.dictionary() != nullptr) {
            specifiers.push_back(
                {textOf(entry, "cell"), textOf(entry, "label"), textOf(entry, "id"), target});
        }
    }
    return specifiers;
}

} // namespace zorel
