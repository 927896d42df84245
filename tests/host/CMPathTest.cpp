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
    CMPath hostile(QStringLiteral("/a b/ä?#%41/\u4e2d"));
    hostile.addParam(QStringLiteral("query"),
                     QStringLiteral("AC/DC & \"x\" = ? # %20 + \U0001F3B5\n"));
    hostile.addParam(QStringLiteral("k&=ey"), QString());
    hostile.addParam(QStringLiteral("zz"), QStringLiteral("~-._"));
    hostile.addParam(QStringLiteral("zero"), QString(1, QChar(0)) + QStringLiteral("x"));
    const CMPath samples[] = {CMPath(), CMPath(QStringLiteral("/tidal")),
                              CMPath(QStringLiteral("a//b/")), hostile};
    for (const CMPath& sample : samples) {
        bool ok = false;
        EXPECT_EQ(CMPath::fromEncoded(sample.toEncoded(), &ok), sample);
        EXPECT_TRUE(ok) << sample.toEncoded().toStdString();
        for (const QChar c : sample.toEncoded())
            EXPECT_TRUE(c.unicode() > 0x20 && c.unicode() < 0x7f);
    }
    EXPECT_EQ(path("/x?b=2&a=1").toEncoded(), QStringLiteral("/x?a=1&b=2"));
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
    EXPECT_FALSE(album.contains(QStringLiteral("context")));
    EXPECT_TRUE(album.contains(QStringLiteral("q/alb")));
    QString rest;
    EXPECT_TRUE(album.startsWith(path("/tidal/req"), &rest));
    EXPECT_EQ(rest, QStringLiteral("/albums"));
    EXPECT_TRUE(album.startsWith(path("/tidal/req/?contentId=5")));
    EXPECT_FALSE(album.startsWith(path("/tidal/req?contentId=6")));
    EXPECT_FALSE(album.startsWith(path("/tidal/re")));
    EXPECT_TRUE(album.equals(path("/tidal/req/albums"), CMPath::CompareBase));
    EXPECT_NE(album, path("/tidal/req/albums"));
}

TEST(CMPathTest, joiningAddsOneSlashAndAppendingAddsNone)
{
    CMPath joined(QStringLiteral("/tidal/"));
    joined.appendSubpath(QStringLiteral("/search"));
    EXPECT_EQ(joined.base(), QStringLiteral("/tidal/search"));
    joined.appendSubpath(QStringLiteral("x"));
    EXPECT_EQ(joined.splitBase(), QStringList({"tidal", "search", "x"}));
    EXPECT_EQ((path("/a?k=v") + QStringLiteral("//b")).toEncoded(), QStringLiteral("/a//b?k=v"));
}

TEST(CMPathTest, copiesDoNotShareLaterChangesAndEqualPathsHashAlike)
{
    CMPath first = path("/a?k=v");
    CMPath second = first;
    second.addParam(QStringLiteral("k"), QStringLiteral("w"));
    second.setBase(QStringLiteral("/b"));
    EXPECT_EQ(first.toEncoded(), QStringLiteral("/a?k=v"));
    EXPECT_EQ(second.toEncoded(), QStringLiteral("/b?k=w"));
    EXPECT_EQ((QSet<CMPath>{first, path("/a?k=v"), second}).size(), 2);
}
