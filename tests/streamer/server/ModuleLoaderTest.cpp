#include "ModuleLoader.h"

#include <gtest/gtest.h>
#include <QTemporaryFile>
#include <QVariantHash>

TEST(ModuleLoaderTest, SaysWhichFileOrSymbolIsWrong)
{
    QTemporaryFile text;
    ASSERT_TRUE(text.open());
    text.write("no library");
    text.close();
    const QString library = QStringLiteral(KELO_NO_MODULE);
    const std::vector<std::pair<QString, QString>> cases{
        {"/no/such/module.so", "there is no such file"},
        {text.fileName(), "cannot load the module"},
        {library, "it has no symbol \"worker_create\""}};
    for (const auto& [file, part] : cases) {
        ModuleLoader loader;
        QString error;
        EXPECT_FALSE(loader.start(file, QVariantHash(), &error));
        EXPECT_TRUE(error.contains(file) && error.contains(part)) << error.toStdString();
    }
}
