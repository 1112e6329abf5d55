// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the host says in its own words, in the language in use: everything that the views do not say.
#pragma once

#include <QString>
#include <QVariantMap>

namespace zorel {

/// The one table of the host's texts, by key. In a text %1 and %2 stand for what is filled in.
class Words {
public:
    [[nodiscard]] bool turkish() const;
    /// The text of a key; the key itself where the table has none.
    [[nodiscard]] QString operator()(const QString& key) const;
    /// "3 days", "1 place found".
    [[nodiscard]] QString days(int count) const;
    [[nodiscard]] QString placesFound(int count) const;
    /// All of them for QML.
    [[nodiscard]] QVariantMap map() const;
};

} // namespace zorel
