// SPDX-License-Identifier: Apache-2.0
// The host's tests run in a real application without a display: offscreen windows, software rendering. A
// warning of the QML engine is a failure.
#include <QGuiApplication>
#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool aboutQml =
        message.contains(QStringLiteral(".qml")) || QByteArray(context.category).startsWith("qml");
    if (type != QtDebugMsg && type != QtInfoMsg && aboutQml) {
        ADD_FAILURE() << message.toStdString();
    }
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_QUICK_BACKEND", "software", 1);
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
