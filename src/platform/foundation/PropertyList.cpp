// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/PropertyList.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/PropertyListGuard.h"

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <plist/plist.h>

namespace zorel {
namespace {

constexpr int kDeepestLevel = 64;

struct Release {
    void operator()(void* memory) const { std::free(memory); }
};
struct ReleaseTree {
    void operator()(plist_t node) const { plist_free(node); }
};
using Text = std::unique_ptr<char, Release>;
using Iterator = std::unique_ptr<void, Release>;
using Tree = std::unique_ptr<void, ReleaseTree>;

/// libplist reads real numbers with the decimal point of the thread's locale, which has to be "." meanwhile.
class PlainNumbers {
public:
    PlainNumbers() : plain_(newlocale(LC_ALL_MASK, "C", nullptr)), previous_(uselocale(plain_)) {}
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;
    ~PlainNumbers() {
        uselocale(previous_);
        freelocale(plain_);
    }

private:
    locale_t plain_;
    locale_t previous_;
};

Tree parseTree(std::string_view bytes) {
    const PlainNumbers plainNumbers;
    plist_t tree = nullptr;
    const auto size = static_cast<std::uint32_t>(bytes.size());
    if (isBinaryPropertyList(bytes)) {
        plist_from_bin(bytes.data(), size, &tree);
    } else {
        plist_from_xml(bytes.data(), size, &tree);
    }
    return Tree(tree);
}

bool convert(plist_t node, int level, PropertyList& out);

bool convertArray(plist_t node, int level, PropertyList& out) {
    void* iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const Iterator owner(iterator);
    PropertyArray array;
    plist_t item = nullptr;
    for (plist_array_next_item(node, iterator, &item); item != nullptr;
         plist_array_next_item(node, iterator, &item)) {
        if (!convert(item, level + 1, array.emplace_back())) {
            return false;
        }
    }
    out.value = std::move(array);
    return true;
}

bool convertDictionary(plist_t node, int level, PropertyList& out) {
    void* iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const Iterator owner(iterator);
    PropertyDictionary dictionary;
    for (;;) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator, &key, &item);
        const Text keyOwner(key);
        if (key == nullptr || item == nullptr) {
            break;
        }
        if (!convert(item, level + 1, dictionary[key])) {
            return false;
        }
    }
    out.value = std::move(dictionary);
    return true;
}

std::string stringValue(plist_t node) {
    char* text = nullptr;
    plist_get_string_val(node, &text);
    const Text owner(text);
    return text != nullptr ? text : "";
}

void convertLeaf(plist_t node, PropertyList& out) {
    std::uint8_t truth = 0;
    std::uint64_t integer = 0;
    double real = 0.0;
    switch (plist_get_node_type(node)) {
    case PLIST_STRING:
        out.value = stringValue(node);
        break;
    case PLIST_UINT:
        plist_get_uint_val(node, &integer);
        out.value = static_cast<std::int64_t>(integer);
        break;
    case PLIST_REAL:
        plist_get_real_val(node, &real);
        out.value = real;
        break;
    case PLIST_BOOLEAN:
        plist_get_bool_val(node, &truth);
        out.value = truth != 0;
        break;
    default:
        break;
    }
}

/// False when the lists nest too deep.
bool convert(plist_t node, int level, PropertyList& out) {
    if (level > kDeepestLevel) {
        return false;
    }
    switch (plist_get_node_type(node)) {
    case PLIST_ARRAY:
        return convertArray(node, level, out);
    case PLIST_DICT:
        return convertDictionary(node, level, out);
    default:
        convertLeaf(node, out);
        return true;
    }
}

} // namespace

const PropertyList* PropertyList::find(std::string_view key) const {
    const PropertyDictionary* entries = dictionary();
    if (entries == nullptr) {
        return nullptr;
    }
    const auto entry = entries->find(key);
    return entry != entries->end() ? &entry->second : nullptr;
}

const std::string* PropertyList::text() const {
    return std::get_if<std::string>(&value);
}

const PropertyArray* PropertyList::array() const {
    return std::get_if<PropertyArray>(&value);
}

const PropertyDictionary* PropertyList::dictionary() const {
    return std::get_if<PropertyDictionary>(&value);
}

std::optional<PropertyList> PropertyList::parse(std::string_view bytes) {
    if (!isHarmlessPropertyList(bytes)) {
        return std::nullopt;
    }
    const Tree tree = parseTree(bytes);
    PropertyList list;
    if (tree == nullptr || !convert(tree.get(), 1, list)) {
        return std::nullopt;
    }
    return list;
}

std::optional<PropertyList> PropertyList::read(const std::string& path) {
    const std::optional<std::string> bytes = readSmallFile(path, kLargestPropertyList);
    return bytes ? parse(*bytes) : std::nullopt;
}

} // namespace zorel
