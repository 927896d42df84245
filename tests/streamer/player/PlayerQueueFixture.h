#pragma once
#include "PlayerControl.h"
#include "PlayerFixture.h"

#include <QJsonArray>

/// The player's queue as clients see it.
class PlayerQueueFixture : public PlayerFixture
{
protected:
    static QStringList numbers(int count)
    {
        QStringList all;
        for (int i = 0; i < count; ++i)
            all << QString::number(i);
        return all;
    }
    QVariantHash rows(int from = 0, int to = 49)
    {
        const auto reply = begin("queueRows", {{"from", from}, {"to", to}});
        EXPECT_EQ(outcome(reply), "ok");
        return reply.value().toHash();
    }
    /// The titles of what comes, those put in by hand before a bar.
    QString titles(int from = 0, int to = 49)
    {
        const QVariantHash answer = rows(from, to);
        QString text;
        int position = from;
        const QVariantList all = answer["rows"].toList();
        for (const QVariant& row : all) {
            const QVariantHash roles = row.toHash();
            EXPECT_EQ(roles.value("Queued").toBool(), position < answer["queued"].toInt());
            text += (position++ == answer["queued"].toInt() ? "| " : "") +
                    roles.value("Title").toString().remove("Track ") + ' ';
        }
        return text;
    }
    QString edit(const QVariantHash& arguments) { return run("queue", arguments); }
    QString editNow(const QString& action, int position, QVariantHash more = {})
    {
        more.insert("action", action);
        more.insert("version", rows(0, 0)["version"]);
        more.insert("position", position);
        return edit(more);
    }
    QString add(const QString& path, const char* at = "end")
    {
        return edit({{"action", "add"}, {"path", path}, {"at", at}});
    }
    QString title() { return status()["title"].toString().remove("Track "); }
    /// The titles after so many steps.
    QString steps(const char* name, int count)
    {
        QStringList all;
        for (int i = 0; i < count; ++i) {
            script.setPosition(0);
            EXPECT_EQ(run(name), "ok");
            all << title();
        }
        return all.join(' ');
    }
    QString next(int count = 1) { return steps("next", count); }
    QString previous(int count = 1) { return steps("previous", count); }
    void notify() { module->subscription()->rowsChanged(list, "reset", -1); }
    void restart()
    {
        player.reset();
        startPlayer();
    }
    QString queueFile() const { return stateDir.filePath("queue.json"); }
};
