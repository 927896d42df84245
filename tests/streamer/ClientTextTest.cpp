#include "client/DisplayText.h"
#include "client/EventParser.h"
#include "Table.h"

#include <gtest/gtest.h>

namespace {

TEST(DisplayText, CutsByTheColumnsThatCharactersTake)
{
    const QString combining = QStringLiteral("e\u0301te\u0301"); // two accents of their own
    for (const auto& [text, columns, width, expected] : Table<QString, int, int, QString>{
             {QStringLiteral("abcdef"), 6, 6, QStringLiteral("abcdef")},
             {QStringLiteral("abcdef"), 6, 5, QStringLiteral("abcd…")},
             {QStringLiteral("漢字漢字"), 8, 7, QStringLiteral("漢字漢…")},
             {QStringLiteral("漢字漢字"), 8, 6,
              QStringLiteral("漢字…")}, // half a character is none
             {combining, 3, 3, combining},
             {combining, 3, 2, QStringLiteral("e\u0301…")},
             {QStringLiteral("🎵🎵"), 4, 3, QStringLiteral("🎵…")},
             {QStringLiteral("abc"), 3, 0, QString()}}) {
        EXPECT_EQ(cli::columns(text), columns) << text.toStdString();
        EXPECT_EQ(cli::cut(text, width), expected) << text.toStdString();
        EXPECT_LE(cli::columns(cli::cut(text, width)), width);
    }
    EXPECT_EQ(cli::padded(QStringLiteral("漢"), 4), QStringLiteral("漢  "));
}

TEST(EventParser, FindsTheSameEventsHoweverTheBytesArrive)
{
    const QByteArray stream = ": hello\n\nevent: rows\ndata: {\"a\":1}\n\ndata:x\r\ndata: y\r\n\r\n"
                              "event: none\n\nevent: login\ndata: z\n\ndata: unfinished\n";
    const QList<QByteArray> expected{"rows={\"a\":1}", "=x\ny", "login=z"};
    for (int piece = 1; piece <= stream.size(); ++piece) {
        QList<QByteArray> events;
        cli::EventParser parser([&events](const cli::ServerEvent& event) {
            events.append(event.name + '=' + event.data);
            return true;
        });
        for (int at = 0; at < stream.size(); at += piece) {
            const QByteArray part = stream.mid(at, piece);
            ASSERT_TRUE(parser.feed(part.constData(), static_cast<size_t>(part.size())));
        }
        EXPECT_EQ(events, expected) << "pieces of " << piece;
    }
}

TEST(EventParser, RefusesAnEventWithoutEnd)
{
    cli::EventParser parser([](const cli::ServerEvent&) { return true; });
    const QByteArray line = "data: " + QByteArray(1024 * 1024, 'x') + '\n';
    int taken = 0;
    while (taken < 10 && parser.feed(line.constData(), static_cast<size_t>(line.size())))
        ++taken;
    EXPECT_EQ(taken, 3);
}

} // namespace
