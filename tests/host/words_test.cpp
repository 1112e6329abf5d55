// SPDX-License-Identifier: Apache-2.0
#include "host/Words.h"

#include "almanac/Corrections.h"
#include "words/Language.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace zorel {
namespace {

TEST(Words, EveryWordOfTheScreensIsInTheTable) {
    const QVariantMap words = Words().map();
    const QRegularExpression use("\\bwords\\.(\\w+)");
    int uses = 0;
    const QDir folder(ZOREL_SOURCE_DIR "/src/host/qml");
    for (const QString& name : folder.entryList({"*.qml"})) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (auto found = use.globalMatch(text); found.hasNext(); ++uses) {
            const QString key = found.next().captured(1);
            EXPECT_TRUE(words.contains(key)) << name.toStdString() << ": " << key.toStdString();
        }
    }
    EXPECT_GT(uses, 15);
}

TEST(Words, BothLanguagesFillInTheSamePlaces) {
    const QVariantMap english = Words().map();
    useLanguages({"tr"});
    const QVariantMap turkish = Words().map();
    useLanguages({});
    EXPECT_NE(english, turkish);
    for (auto word = english.begin(); word != english.end(); ++word) {
        const QString other = turkish.value(word.key()).toString();
        EXPECT_FALSE(other.isEmpty()) << word.key().toStdString();
        for (const char* place : {"%1", "%2"}) {
            EXPECT_EQ(word.value().toString().count(place), other.count(place)) << word.key().toStdString();
        }
    }
}

TEST(Words, EveryCorrectionOfTheAlmanacHasASentence) {
    const Words words;
    for (std::size_t i = 0; i < almanac::kCorrections; ++i) {
        const std::string key(almanac::keyOf(static_cast<almanac::Correction>(i)));
        EXPECT_NE(words(QString::fromStdString(key)).toStdString(), key);
    }
}

} // namespace
} // namespace zorel
