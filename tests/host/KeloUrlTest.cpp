#include "Table.h"

#include <gtest/gtest.h>
#include <kelo/KeloUrl.h>

namespace {
KeloUrl url(const char* text)
{
    return KeloUrl(QString::fromUtf8(text));
}
} // namespace

TEST(KeloUrlTest, whatMayNotStandInAUrlIsEscapedAndWhatIsEscapedStays)
{
    for (const auto& [set, encoded] :
         Table<const char*, const char*>{{"", ""},
                                         {"http://h:80/a/b?x=1&y=2#f", "http://h:80/a/b?x=1&y=2#f"},
                                         {"http://h/a b\r\nX: y", "http://h/a%20b%0D%0AX:%20y"},
                                         {"http://h/%41%2f", "http://h/%41%2f"},
                                         {"http://h/%zz%20", "http://h/%25zz%20"},
                                         {"http://h/\xc3\x85<>\"{}|\\^`\x7f",
                                          "http://h/%C3%85%3C%3E%22%7B%7D%7C%5C%5E%60%7F"}}) {
        EXPECT_EQ(url(set).toEncoded(), QByteArray(encoded)) << set;
        EXPECT_EQ(KeloUrl::fromEncoded(set), url(set)) << set;
        EXPECT_EQ(KeloUrl(url(set).toString()), url(set)) << set;
    }
}

TEST(KeloUrlTest, queryItemsReplaceTheQueryAndKeepOnlyUnreservedBytes)
{
    KeloUrl address = url("http://h/p?old=1#part");
    address.setQueryItems({{"a b", "\xc3\x85&=+#?/%20"}, {"~-._", QString()}});
    EXPECT_EQ(address.toEncoded(),
              QByteArray("http://h/p?a%20b=%C3%85%26%3D%2B%23%3F%2F%2520&~-._=#part"));
    address.setQueryItems({});
    EXPECT_EQ(address.toEncoded(), QByteArray("http://h/p#part"));
}

TEST(KeloUrlTest, anEncodedItemIsAddedBehindTheQueryAndBeforeTheFragment)
{
    for (const auto& [before, after] :
         Table<const char*, const char*>{{"", "?k=%20"},
                                         {"http://h/p?", "http://h/p?k=%20"},
                                         {"http://h/p?a=1#f?g", "http://h/p?a=1&k=%20#f?g"},
                                         {"http://h/p#f?g", "http://h/p?k=%20#f?g"}}) {
        KeloUrl address = url(before);
        address.addEncodedQueryItem("k", "%20");
        EXPECT_EQ(address.toEncoded(), QByteArray(after)) << before;
    }
}
