#include "modules/Modules.h"
#include "library/RuntimeLibrary.h"
#include "modules/ModuleApplication.h"
#include "Table.h"

#include <chrono>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <QEventLoop>
#include <QTemporaryDir>
#include <unistd.h>

namespace {

using testing::ElementsAre;

const QString folder = KELO_TEST_MODULES "/";

/// A set of modules, started one after the other; each test reads the tree through the root.
class ModulesTest : public testing::Test
{
protected:
    static constexpr std::chrono::milliseconds longLimit{20000};

    /// A copy does not find the library that its original finds beside itself, unless it is loaded.
    static void SetUpTestSuite() { ASSERT_TRUE(RuntimeLibrary(KELO_NO_MODULE).isLoaded()); }

    /// Starts files with settings by name; what was wrong when none serves.
    QString start(const QStringList& files, const QHash<QString, QVariantHash>& sections = {},
                  std::chrono::milliseconds limit = longLimit)
    {
        std::vector<ModuleChoice> choices;
        for (const QString& file : files)
            choices.push_back(ModuleChoice::ofFile(file, {{}, sections}));
        QString error;
        const bool isStarted = modules.start(
            choices, limit, [] { return true; }, &error);
        EXPECT_EQ(isStarted, error.isEmpty());
        return error;
    }
    /// A copy of the good module under another name.
    QString copy(const QString& name)
    {
        const QString file = m_dir.filePath("lib" + name + ".so");
        EXPECT_TRUE(QFile::copy(folder + "libshelf.so", file));
        return file;
    }
    /// A copy that has other bytes at a place.
    QString patched(const QString& name, int at, const QByteArray& bytes, int size = -1)
    {
        QFile file(copy(name));
        EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(bytes) >= 0 &&
                    (size < 0 || file.resize(size)));
        return file.fileName();
    }
    /// Titles of the rows at a path, or the error.
    static QStringList rows(const QString& path)
    {
        const CMGetRowsRequest request(CMPath(path), 0, 9, {KeloRoles::Title()});
        CMRoot().request(request);
        if (!request.reply().waitForFinished(int(longLimit.count())))
            return {"unanswered"};
        if (request.reply().error().isSet())
            return {"error: " + request.reply().error().message()};
        QStringList titles;
        const QVariantList all = request.reply().value().rows().toList();
        for (const QVariant& row : all)
            titles << row.toList().value(0).toString();
        return titles;
    }
    /// Has a module throw in its event loop, and waits until that is known.
    void crash(const QString& prefix)
    {
        QEventLoop loop;
        const quint64 open = CMRoot().openRows(CMPath("/"), [&](const auto& notice) {
            if (notice.count == modules.states().size())
                QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
        });
        EXPECT_NE(open, 0u);
        const auto reply = CMRoot().invoke(CMPath(prefix + "/crash"), true);
        loop.exec();
        CMRoot().closeRows(open);
        EXPECT_TRUE(reply.waitForFinished(int(longLimit.count())) && reply.error().isSet());
    }

    std::function<void()> isNoneLeft;
    Modules modules{[this] { isNoneLeft(); }};

private:
    QTemporaryDir m_dir;
};

TEST_F(ModulesTest, SaysWhyAFileIsNoModuleOfThis)
{
    const QByteArray otherMachine("\x08\x00", 2); // MIPS
    const QString file = folder + "libshelf.so";
    for (const auto& [name, said] : Table<QString, QString>{
             {"/nowhere/libx.so", "there is no such file"},
             {folder, "there is no such file"},
             {KELO_OPENAPI, "it is no shared library"},
             {patched("program", 16, QByteArray("\x02", 1)), "it is no shared library"},
             {patched("mips", 18, otherMachine),
              "it is made for a machine of type 8, this machine"},
             {patched("arm", 18, QByteArray("\x28\x00", 2)),
              "it is made for ARM, this machine is "},
             {patched("narrow", 4, QByteArray("\x01", 1)), "it is made for another word size"},
             {patched("half", 0, {}, 5000), "it is not all there"},
             {patched("empty", 0, {}, 0), "it is no shared library"},
             {folder + "liboldshelf.so",
              "it was built for version 0.0 of the interface, this is " KELO_INTERFACE_VERSION},
             {folder + "libnoentry.so", "it has no symbol \"worker_create\""},
             {KELO_NO_MODULE, "it has no symbol \"kelo_module_interface\""},
             {copy("a shelf"), "its name \"a shelf\" has more than"}}) {
        const QString error = start({name});
        EXPECT_TRUE(error.startsWith("cannot use the module " + name + ": " + said))
            << error.toStdString();
    }
}

TEST_F(ModulesTest, SaysWhatAnEntryDoesWrong)
{
    for (const auto& [how, said] : Table<const char*, QString>{
             {"throws", "its worker_create threw an exception: no shelf today"},
             {"throwsNumber", "its worker_create threw an exception of an unknown type"},
             {"null", "its worker_create gave no worker"},
             {"noPaths", "it serves no paths"},
             {"top", "it stands at \"/\", which is no path of one segment"},
             {"throwsPaths", "its worker threw an exception: no paths today"}}) {
        const QString file = folder + "libshelf.so";
        EXPECT_EQ(start({file}, {{"shelf", {{"how", how}}}}),
                  "cannot use the module " + file + ": " + said);
        EXPECT_EQ(rows("/shelf").value(0).left(6), "error:");
    }
}

TEST_F(ModulesTest, OneThatFailsLeavesTheOthersServing)
{
    const QString file = folder + "libshelf.so";
    const QString twin = copy("twin");
    EXPECT_EQ(start({file, folder + "liboldshelf.so", twin, copy("kelo_cb_radio"), copy(QString())},
                    {{"shelf", {{"title", "Books"}}},
                     {"twin", {{"prefix", "/shelf"}}},
                     {"radio", {{"prefix", "/waves"}, {"title", "Radio"}}}}),
              QString());
    const QString old = "cannot use the module " + folder +
                        "liboldshelf.so: it was built for version 0.0 of the interface, this "
                        "is " KELO_INTERFACE_VERSION;
    EXPECT_THAT(rows("/"), ElementsAre("Books", "oldshelf", "Radio"));
    EXPECT_THAT(rows("/shelf"), ElementsAre("Tones", "Crash"));
    EXPECT_THAT(rows("/waves"), ElementsAre("Tones", "Crash"));
    EXPECT_THAT(rows("/oldshelf/tones"), ElementsAre("error: " + old));
    EXPECT_EQ(modules.states().at(1).problem, old);
    EXPECT_EQ(modules.states().at(2).problem,
              "cannot use the module " + twin + ": its prefix /shelf is that of " + file);
    EXPECT_TRUE(modules.states().at(4).problem.contains("its name \"\" has more than"));
}

TEST_F(ModulesTest, NamesSectionsThatAreNoModules)
{
    const ModuleSettings settings{{}, {{"shelf", {}}, {"shelff", {}}, {"kelo_cb_radio", {}}}};
    std::vector<ModuleChoice> choices;
    for (const char* file : {"libshelf.so", "libkelo_cb_radio.so"})
        choices.push_back(ModuleChoice::ofFile(file, settings));
    EXPECT_THAT(
        ModuleChoice::strayingSections(choices, settings),
        ElementsAre("[module.kelo_cb_radio] is not used: no module is called kelo_cb_radio; "
                    "served are shelf, radio",
                    "[module.shelff] is not used: no module is called shelff; served are "
                    "shelf, radio"));
}

TEST_F(ModulesTest, WhatThrowsInItsLoopEndsAlone)
{
    const QString radio = copy("radio");
    ASSERT_EQ(start({folder + "libshelf.so", radio}), QString());
    crash("/radio");
    const QString stopped =
        "the module " + radio + " has stopped: its event loop threw an exception: the shelf broke";
    EXPECT_THAT(rows("/radio/tones"), ElementsAre("error: " + stopped));
    EXPECT_THAT(rows("/shelf"), ElementsAre("Tones", "Crash"));
    EXPECT_EQ(modules.states().at(1).problem, stopped);
    EXPECT_EQ(modules.states().at(0).problem, QString());
    bool isTold = false;
    isNoneLeft = [&] { isTold = true; };
    crash("/shelf");
    QCoreApplication::processEvents();
    EXPECT_TRUE(isTold);
}

TEST_F(ModulesTest, OneThatHangsIsLeftBehindAndNeverPublished)
{
    for (const bool isInFirstCode : {false, true}) {
        int until[2];
        int gone[2];
        ASSERT_TRUE(::pipe2(until, O_CLOEXEC) == 0 && ::pipe2(gone, O_CLOEXEC) == 0);
        const QString name = isInFirstCode ? "stuck" : "shelf";
        QVariantHash settings{{"until", until[0]}, {"gone", gone[1]}};
        // While the first code of one runs, the system loads no other library.
        QStringList files{copy(name)};
        if (isInFirstCode)
            qputenv("SHELF_UNTIL", QByteArray::number(until[0]));
        else
            files << copy("radio");
        settings["how"] = isInFirstCode ? "" : "hangs";
        (void)start(files, {{name, settings}}, std::chrono::milliseconds(500));
        EXPECT_TRUE(rows('/' + name)
                        .value(0)
                        .endsWith(isInFirstCode
                                      ? "its own first code has not returned within 0.5 s"
                                      : "its worker_create has not returned within 0.5 s"));
        EXPECT_TRUE(modules.isThreadLeftBehind());
        modules.stop();
        ::close(until[1]);
        char byte;
        EXPECT_EQ(::read(gone[0], &byte, 1), 0);
        EXPECT_EQ(rows('/' + name).value(0).left(6), "error:");
        ::close(until[0]);
        ::close(gone[0]);
        qunsetenv("SHELF_UNTIL");
    }
}

} // namespace

int main(int argc, char** argv)
{
    ModuleApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
