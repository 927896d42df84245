#include "Table.h"

#include <gtest/gtest.h>
#include <kelo/KeloJson.h>
#include <limits>
#include <thread>

namespace {
QByteArray nested(int depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}
} // namespace

TEST(KeloJsonTest, whatIsNotOneWholeDocumentIsRefusedWithAReason)
{
    QList<QByteArray> refused =
        QByteArray("| |{|{\"a\":1|{\"a\":1}x|{\"a\":1}{}|[1,]|{\"a\"}|nul|01|\"a|"
                   "\"\x01\"|\"\\x\"|<html></html>|123456789012345678901234567890")
            .split('|');
    refused << QByteArray("\"\xff\xfe\"", 4) << QByteArray("\"\xed\xa0\x80\"", 5)
            << QByteArray("[\0]", 3) << nested(257) << QByteArray(100000, '[');
    for (const QByteArray& text : refused) {
        KeloError error;
        EXPECT_TRUE(KeloJson::parse(text, &error).isNull()) << text.left(40).constData();
        EXPECT_TRUE(error.isSet()) << text.left(40).constData();
    }
    KeloError error(QStringLiteral("old"));
    EXPECT_TRUE(KeloJson::parse(nested(200), &error).isArray());
    EXPECT_FALSE(error.isSet());
}

TEST(KeloJsonTest, aReaderOfAnotherTypeYieldsThatTypesEmptyValue)
{
    const KeloJson json =
        KeloJson::parse(R"({"object":{"x":1},"array":[1,2],"text":"t","number":3,"real":1.5,)"
                        R"("yes":true,"no":false,"null":null,"none":{},"empty":[]})");
    for (const char* name : {"object", "array", "text", "number", "real", "yes", "no", "null",
                             "none", "empty", "missing"}) {
        const std::string field = name;
        const KeloJson value = json.value(name);
        EXPECT_EQ(value.isObject(), field == "object" || field == "none") << field;
        EXPECT_EQ(value.isArray(), field == "array" || field == "empty") << field;
        EXPECT_EQ(value.toUtf8(), field == "text" ? "t" : "") << field;
        EXPECT_EQ(value.toInt64(-1), field == "number" ? 3 : -1) << field;
        EXPECT_EQ(value.isNumber(), field == "number" || field == "real") << field;
        EXPECT_EQ(value.toBool(), field == "yes") << field;
        EXPECT_EQ(value.toBool(true), field != "no") << field;
        EXPECT_EQ(value.isNull(), field == "null" || field == "missing") << field;
        EXPECT_EQ(json.contains(name), field != "missing") << field;
        EXPECT_EQ(value.value("x").toInt64(), field == "object" ? 1 : 0) << field;
        EXPECT_EQ(value.size(), field == "array" ? 2 : field == "object" ? 1 : 0) << field;
        int elements = 0;
        value.forEach([&](const KeloJson& element) { elements += element.isNumber(); });
        EXPECT_EQ(elements, field == "array" ? 2 : 0) << field;
        int fields = 0;
        value.forEachField([&](std::string_view, const KeloJson&) { ++fields; });
        EXPECT_EQ(fields, field == "object" ? 1 : 0) << field;
    }
}

TEST(KeloJsonTest, integersKeepAll64BitsAndFractionsOfZeroAreIntegers)
{
    for (const auto& [text, integer] :
         Table<const char*, qint64>{{"9223372036854775807", std::numeric_limits<qint64>::max()},
                                    {"9223372036854775808", -7},
                                    {"4005.0", 4005},
                                    {"1e300", -7},
                                    {"9223372036854775808.0", -7},
                                    {"0.5", -7}}) {
        EXPECT_EQ(KeloJson::parse(text).toInt64(-7), integer) << text;
        EXPECT_EQ(KeloJson::parse(text).isInteger(), integer != -7) << text;
    }
    EXPECT_EQ(KeloJson::parse("18446744073709551615").toDouble(), 18446744073709551615.0);
}

TEST(KeloJsonTest, theFirstOfEqualKeysCountsAndKeysMayHoldAnything)
{
    const KeloJson json = KeloJson::parse(
        "{\"a\":1,\"a\":2,\"\":3,\"\\u0000b\":4,\"\\u00e5\":{\"a\":[{},[5]]},\"z\":6}");
    EXPECT_EQ(json.value("a").toInt64(), 1);
    EXPECT_EQ(json.value("").toInt64(), 3);
    EXPECT_EQ(json.value(std::string_view("\0b", 2)).toInt64(), 4);
    EXPECT_EQ(json.value("z").toInt64(), 6) << "a nested value is stepped over";
    EXPECT_TRUE(json.value("\xc3\xa5").value("a").isArray());
    EXPECT_EQ(json.toVariant().toHash().value(QStringLiteral("a")), QVariant(1));
    std::string keys;
    json.forEachField([&](std::string_view key, const KeloJson& value) {
        keys += std::string(key) + (value.isNumber() ? "#," : "*,");
    });
    EXPECT_EQ(keys, std::string("a#,a#,#,\0b#,\xc3\xa5*,z#,", 19));
}

TEST(KeloJsonTest, valuesOutliveTheTextTheDocumentAndTheThread)
{
    KeloJson name;
    std::thread reader([&name] {
        QByteArray text = "[{\"id\":1,\"name\":\"n\\n1\"},{\"id\":2,\"name\":\"n\\n2\"}]";
        const KeloJson list = KeloJson::parse(text);
        list.forEach([&](const KeloJson& item) { name = item.value("name"); });
        text.fill('x');
        EXPECT_EQ(KeloJson::parse("[{\"own\":1}]").size(), 1) << "memory of its own";
        EXPECT_EQ(list.size(), 2);
    });
    reader.join();
    KeloJson::parse("{\"own\":1}");
    EXPECT_EQ(name.toUtf8(), "n\n2");
}
