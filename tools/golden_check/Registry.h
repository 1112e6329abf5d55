// SPDX-License-Identifier: Apache-2.0
/// @file
/// What golden_check knows to run: operation name -> how one case is run.
///
/// A file of operations defines one function `void add...Operations(Registry&)` and calls
/// `registry.add({...})` for each operation; golden_check.cpp calls that function.
#pragma once

#include "engine/Records.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

namespace zorel::golden {

using Json = nlohmann::json;

/// A golden file that cannot be used: the text says why.
struct MalformedFile : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The "in" of one case. Every reader throws MalformedFile when the position is missing or of another kind.
class Arguments {
public:
    explicit Arguments(const Json& in);
    [[nodiscard]] std::size_t size() const { return in_.size(); }
    /// A number, true or false (1 and 0), or "nan", "inf", "-inf".
    [[nodiscard]] double number(std::size_t position) const;
    /// A whole 32-bit number, true or false.
    [[nodiscard]] std::int32_t integer(std::size_t position) const;
    [[nodiscard]] std::string text(std::size_t position) const;
    /// A nested list of numbers.
    [[nodiscard]] std::vector<double> numbers(std::size_t position) const;
    /// A nested [year, month, day, hour, minute, second]; missing fields at the end are 0.
    [[nodiscard]] DateTimeRecord record(std::size_t position) const;
    /// Year, month and day at three positions in a row.
    [[nodiscard]] DateTimeRecord date(std::size_t position) const;

private:
    const Json& at(std::size_t position) const;
    const Json& in_;
};

/// Results in the order of "result"; nested lists are flat, true is 1. Not-a-number stands for a field that
/// the operation does not write.
using Outputs = std::vector<double>;
using Runner = std::function<Outputs(const Arguments&)>;

/// How one position of the results is compared when it is not by the operation's "tolerance" alone.
struct Field {
    std::size_t position = 0;
    double tolerance = -1.0; ///< below zero: the operation's
    double period = 0.0;     ///< 360, 24, ... for an angle or hour that wraps; 0: none
    bool relative = false;   ///< the tolerance is relative to the expected value
};

struct Operation {
    std::string name;
    Runner run;
    std::vector<Field> fields{};
    /// The "args" this runner is for; empty: any. Two runners may share a name and differ in these.
    std::vector<std::string> arguments{};
    /// Position of the results that holds the tolerance of the first one; below zero: none does.
    int tolerancePosition = -1;
    /// Gives what "back" of a case lists, where the operation has it: days moved back by each search.
    Runner back{};
};

class Registry {
public:
    void add(Operation operation) { operations_.push_back(std::move(operation)); }
    /// The runner of a name: the one made for exactly these arguments, else the one for any; nullptr if none.
    [[nodiscard]] const Operation* find(const std::string& name,
                                        const std::vector<std::string>& arguments) const;

private:
    std::vector<Operation> operations_;
};

void addSolarOperations(Registry& registry);
void addPrayerOperations(Registry& registry);
/// Moon, Hijri calendar, magnetic variation, widget summary (lunar.cpp).
void addLunarOperations(Registry& registry);

} // namespace zorel::golden
