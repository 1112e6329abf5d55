// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the host says in its own words, English and Turkish: everything that the views do not say.
#pragma once

#include <QString>
#include <QVariantMap>

namespace zorel {

/// The one table of the host's texts, by key. In a text %1 and %2 stand for what is filled in.
class Words {
public:
    explicit Words(bool turkish) : turkish_(turkish) {}

    [[nodiscard]] bool turkish() const { return turkish_; }
    /// The text of a key; the key itself where the table has none.
    [[nodiscard]] QString operator()(const QString& key) const;
    /// All of them for QML.
    [[nodiscard]] QVariantMap map() const;

private:
    bool turkish_;
};

} // namespace zorel
