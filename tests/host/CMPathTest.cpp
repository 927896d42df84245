#include <gtest/gtest.h>
#include <kelo/CMPath.h>
#include <QSet>

namespace {
CMPath path(const char* encoded)
{
    bool ok = false;
    const CMPath result = CMPath::fromEncoded(QString::fromUtf8(encoded), &ok);
    EXPECT_TRUE(ok) << encoded;
    return result;
}
} // namespace

TEST(CMPathTest, encodedTextBringsEveryPathBackUnchanged)
{
    CMPath hostile("/a b/ä?#%41/\u4e2d");
    hostile.addParam("query", "AC/DC & \"x\" = ? # %20 + \U0001F3B5\n");
    hostile.addParam("k&=ey", QString());
    hostile.addParam("zz", "~-._");
    hostile.addParam("zero", QString(1, QChar(0)) + "x");
    const CMPath samples[] = {CMPath(), CMPath("/tidal"), CMPath("a//b/"), hostile};
    for (const CMPath& sample : samples) {
        bool ok = false;
        EXPECT_EQ(CMPath::fromEncoded(sample.toEncoded(), &ok), sample);
        EXPECT_TRUE(ok) << sample.toEncoded().toStdString();
        for (const QChar c : sample.toEncoded())
            EXPECT_TRUE(c.unicode() > 0x20 && c.unicode() < 0x7f);
    }
    EXPECT_EQ(path("/x?b=2&a=1").toEncoded(), "/x?a=1&b=2");
}

TEST(CMPathTest, brokenEncodedTextIsRefused)
{
    for (const char* broken : {"/a%4", "/a%zz", "/a?k=%f", "/a%ff", "/a?=v", "/a?k=%c3%28"}) {
        bool ok = true;
        EXPECT_TRUE(CMPath::fromEncoded(QString::fromUtf8(broken), &ok).isEmpty()) << broken;
        EXPECT_FALSE(ok) << broken;
    }
}

TEST(CMPathTest, theBaseAloneDecidesContainsAndWholeSegmentsDecideStartsWith)
{
    const CMPath album = path("/tidal/req/albums?contentId=5&query=context");
    EXPECT_FALSE(album.contains("context"));
    EXPECT_TRUE(album.contains("q/alb"));
    QString rest;
    EXPECT_TRUE(album.startsWith(path("/tidal/req"), &rest));
    EXPECT_EQ(rest, "/albums");
    EXPECT_TRUE(album.startsWith(path("/tidal/req/?contentId=5")));
    EXPECT_FALSE(album.startsWith(path("/tidal/req?contentId=6")));
    EXPECT_FALSE(album.startsWith(path("/tidal/re")));
    EXPECT_TRUE(album.equals(path("/tidal/req/albums"), CMPath::CompareBase));
    EXPECT_NE(album, path("/tidal/req/albums"));
}

TEST(CMPathTest, joiningAddsOneSlashAndAppendingAddsNone)
{
    CMPath joined("/tidal/");
    joined.appendSubpath("/search");
    EXPECT_EQ(joined.base(), "/tidal/search");
    joined.appendSubpath("x");
    EXPECT_EQ(joined.splitBase(), QStringList({"tidal", "search", "x"}));
    EXPECT_EQ((path("/a?k=v") + "//b").toEncoded(), "/a//b?k=v");
}

TEST(CMPathTest, copiesDoNotShareLaterChangesAndEqualPathsHashAlike)
{
    CMPath first = path("/a?k=v");
    CMPath second = first;
    second.addParam("k", "w");
    second.setBase("/b");
    EXPECT_EQ(first.toEncoded(), "/a?k=v");
    EXPECT_EQ(second.toEncoded(), "/b?k=w");
    EXPECT_EQ((QSet<CMPath>{first, path("/a?k=v"), second}).size(), 2);
}
