// SPDX-License-Identifier: Apache-2.0
/// @file
/// Checks a JSON document against a JSON Schema: the keywords that docs/zorel.schema.json uses, and no
/// others.
#pragma once

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace zorel::test {

class SchemaChecker {
public:
    using Json = nlohmann::json;

    explicit SchemaChecker(Json schema) : root_(std::move(schema)) {}

    /// What is wrong with the document, one line each; empty when it is valid.
    std::vector<std::string> check(const Json& document, const std::string& definition) {
        problems_.clear();
        walk(document, root_.at("$defs").at(definition), definition);
        return problems_;
    }

    /// Keywords of a schema that this checker would silently ignore.
    static std::set<std::string> unknownKeywords(const Json& schema) {
        static const std::set<std::string> known{"type",    "properties", "required", "additionalProperties",
                                                 "items",   "enum",       "const",    "pattern",
                                                 "minimum", "maximum",    "$ref"};
        std::set<std::string> unknown;
        for (const auto& [key, value] : schema.items()) {
            if (!known.contains(key)) {
                unknown.insert(key);
            }
            if (key == "properties") {
                for (const auto& [name, inner] : value.items()) {
                    unknown.merge(unknownKeywords(inner));
                }
            }
            if (key == "items") {
                unknown.merge(unknownKeywords(value));
            }
        }
        return unknown;
    }

private:
    void report(const std::string& path, const std::string& what) { problems_.push_back(path + ": " + what); }

    static bool hasType(const Json& value, const std::string& type) {
        if (type == "null") {
            return value.is_null();
        }
        if (type == "boolean") {
            return value.is_boolean();
        }
        if (type == "integer") {
            return value.is_number_integer();
        }
        if (type == "number") {
            return value.is_number();
        }
        if (type == "string") {
            return value.is_string();
        }
        return type == "array" ? value.is_array() : value.is_object();
    }

    void checkType(const Json& value, const Json& type, const std::string& path) {
        const std::vector<std::string> types =
            type.is_array() ? type.get<std::vector<std::string>>() : std::vector{type.get<std::string>()};
        if (std::none_of(types.begin(), types.end(), [&](const auto& one) { return hasType(value, one); })) {
            report(path, "wrong type " + value.dump());
        }
    }

    void checkValue(const Json& value, const Json& schema, const std::string& path) {
        if (schema.contains("const") && schema["const"] != value) {
            report(path, "is not " + schema["const"].dump());
        }
        if (schema.contains("enum") &&
            std::find(schema["enum"].begin(), schema["enum"].end(), value) == schema["enum"].end()) {
            report(path, "is none of the choices: " + value.dump());
        }
        if (value.is_number() && schema.contains("minimum") && value < schema["minimum"]) {
            report(path, "too small");
        }
        if (value.is_number() && schema.contains("maximum") && value > schema["maximum"]) {
            report(path, "too large");
        }
        if (value.is_string() && schema.contains("pattern") &&
            !std::regex_search(value.get<std::string>(), std::regex(schema["pattern"].get<std::string>()))) {
            report(path, "does not match: " + value.dump());
        }
    }

    void checkObject(const Json& value, const Json& schema, const std::string& path) {
        const Json properties = schema.value("properties", Json::object());
        const Json required = schema.value("required", Json::array());
        for (const auto& name : required) {
            if (!value.contains(name.get<std::string>())) {
                report(path, "lacks " + name.get<std::string>());
            }
        }
        for (const auto& [name, inner] : value.items()) {
            if (properties.contains(name)) {
                walk(inner, properties[name], fmt::format("{}.{}", path, name));
            } else if (!schema.value("additionalProperties", true)) {
                report(path, "has an unknown member " + name);
            }
        }
    }

    void walk(const Json& value, const Json& schema, const std::string& path) {
        if (schema.contains("$ref")) {
            const std::string target = schema["$ref"].get<std::string>().substr(8); // behind "#/$defs/"
            walk(value, root_.at("$defs").at(target), path);
            return;
        }
        if (schema.contains("type")) {
            checkType(value, schema["type"], path);
        }
        checkValue(value, schema, path);
        if (value.is_object()) {
            checkObject(value, schema, path);
        }
        if (value.is_array() && schema.contains("items")) {
            for (std::size_t i = 0; i < value.size(); ++i) {
                walk(value[i], schema["items"], path + '[' + std::to_string(i) + ']');
            }
        }
    }

    Json root_;
    std::vector<std::string> problems_;
};

} // namespace zorel::test
