#include "settings/SettingsLoader.h"
#include "settings/SettingsKeys.h"
#include "settings/StateDirectory.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

using testing::HasSubstr;

/// A folder of its own as the user's settings folder, and nothing of this machine's.
class SettingsLoaderTest : public testing::Test
{
protected:
    SettingsLoaderTest()
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toLocal8Bit());
        qunsetenv("CREDENTIALS_DIRECTORY");
    }

    QString write(const QString& name, const QByteArray& content)
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }

    static LoadedSettings load(const QString& file, const QStringList& overrides = {})
    {
        std::vector<SettingsOverride> list;
        for (const QString& text : overrides)
            list.push_back(splitOverride(text));
        return loadSettings(file, list);
    }

    QTemporaryDir m_folder;
};

TEST_F(SettingsLoaderTest, ReadsEveryKeyBackFromAFileThatSetsThemAll)
{
    const QString file = KELO_EVERY_SETTING;
    QFile sample(file);
    ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
    const QByteArray content = sample.readAll();
    const LoadedSettings loaded = load(file);
    ASSERT_EQ(loaded.problems, QStringList());
    for (const SettingsKey& key : settingsKeys()) {
        const int line =
            content.left(content.indexOf('\n' + key.word().toLatin1() + " =") + 1).count('\n') + 1;
        EXPECT_EQ(loaded.origin(key.name), QStringLiteral("%1:%2").arg(file).arg(line));
        const bool isDefault = key.read(loaded.settings) == key.read(Settings());
        EXPECT_EQ(isDefault, key.word() == QLatin1String("client_secret_file"))
            << key.name.toStdString();
    }
    const Settings& settings = loaded.settings;
    EXPECT_EQ(settings.server.listen.host, "::1");
    EXPECT_EQ(settings.server.listen.port, 0);
    EXPECT_EQ(settings.server.hostNames, (QStringList{"music.lan", "kelo.example"}));
    EXPECT_EQ(settings.deadlines.rowsSeconds, 0.25);
    EXPECT_EQ(settings.deadlines.dataSeconds, 3);
    EXPECT_EQ(settings.tidal.apiUrl, "http://127.0.0.1:9000/v1");
    EXPECT_EQ(settings.tidal.imageUrl, "http://127.0.0.1:9000/images/");
    EXPECT_EQ(settings.tidal.oauth2.clientSecret.reveal(), "hush");
    EXPECT_EQ(findSettingsKey("tidal.oauth2.client_secret")->read(settings), QVariant("***"));
}

TEST_F(SettingsLoaderTest, NamesFileLineKeyAndWhatWasWanted)
{
    for (const auto& [content, line, expected] : Table<const char*, const char*, const char*>{
             {"[server]\n\nlisten = 8095", ":3: server.listen: ", "wanted ADDR:PORT"},
             {"[server]\nlisten = \"127.0.0.1:65536\"", ":2: server.listen: ", "wanted ADDR:PORT"},
             {"[server]\nhost_names = [\"a:1\"]", ":2: server.host_names: ", "got [a:1]"},
             {"[servr]\nlisten = 1", ":1: servr: ", "no such key"},
             {"[[server]]\nlisten = \"127.0.0.1:1\"", ":1: server: ", "wanted a section [server]"},
             {"[log]\nlevel = \"loud\"", ":2: log.level: ", "trace, debug, info, warn, error"},
             {"[deadlines]\nrows_s = 0", ":2: deadlines.rows_s: ", "wanted seconds above 0"},
             {"[deadlines]\nrows_s = nan", ":2: deadlines.rows_s: ", "wanted seconds above 0"},
             {"[player]\noutput = \" \"", ":2: player.output: ", "wanted auto, null or"},
             {"[tidal]\napi_url = \"ftp://x/\"", ":2: tidal.api_url: ", "wanted an http or https"},
             {"[tidal]\nimage_url = \"http://u:pw@x/\"", ":2: tidal.image_url: ", "with an \"@\""},
             {"[tidal]\nimage_size = \"320\"", ":2: tidal.image_size: ", "wanted WIDTHxHEIGHT"},
             {"[tidal]\ncountry_code = \"no\"", ":2: tidal.country_code: ", "two capital letters"},
             {"[tidal]\nmax_idle_time_ms = 1.5", ":2: tidal.max_idle_time_ms: ", "whole milli"},
             {"[tidal]\nsound_quality = \"MAX\"", ":2: tidal.sound_quality: ", "LOSSLESS, HI_RES"},
             {"[tidal]\nuse_post_paywall = 1", ":2: tidal.use_post_paywall: ", "true or false"},
             {"[tidal.oauth2]\nscope = 2024-01-01", ":2: tidal.oauth2.scope: ", "type date"},
             {"[tidal.oauth2]\nclient_secret_file = \"none\"", ":2: ", "cannot read"},
             {"[module]\nradio = 1", ":1: module.radio: ", "wanted a section [module.radio]"},
             {"[module.a]\nb = 1\nprefix = \"/x/y\"", ":3: module.a.prefix: ", "such as /a, got"},
             {"[log]\nlevel = ", ":2: ", "not TOML"}}) {
        const QString file = write("wrong.toml", content);
        const LoadedSettings loaded = load(file);
        ASSERT_EQ(loaded.problems.size(), 1) << content;
        const std::string problem = loaded.problems.first().toStdString();
        EXPECT_THAT(problem, testing::StartsWith(file.toStdString() + line)) << content;
        EXPECT_THAT(problem, HasSubstr(expected)) << content;
        EXPECT_THAT(problem, testing::Not(HasSubstr("pw"))) << content;
    }
}

TEST_F(SettingsLoaderTest, CollectsAllProblemsOfFileAndCommandLine)
{
    const QString file = write("wrong.toml", "[log]\nlevel = 1\nfile = 2\n");
    const LoadedSettings loaded =
        load(file, {"tidal.max_idle_time_ms=x", "log.level", "=", "tidal.use_post_paywall=1"});
    EXPECT_EQ(loaded.problems.size(), 6);
    for (int i = 2; i < 6; ++i)
        EXPECT_TRUE(loaded.problems.value(i).startsWith(QLatin1String("-o: ")));
}

TEST_F(SettingsLoaderTest, PrefersCommandLineToFileToDefault)
{
    write("kelo/kelo.toml", "[log]\nlevel = \"warn\"\nfile = \"a\"\n");
    const LoadedSettings user =
        load(QString(), {"log.level=error", "deadlines.rows_s=0.5", "tidal.use_post_paywall=false",
                         "log.file=", "server.host_names=a.lan,b.lan"});
    ASSERT_EQ(user.problems, QStringList());
    EXPECT_EQ(user.settings.log.level, "error");
    EXPECT_EQ(user.settings.log.file, QString());
    EXPECT_EQ(user.settings.server.hostNames, (QStringList{"a.lan", "b.lan"}));
    EXPECT_EQ(user.settings.deadlines.rowsSeconds, 0.5);
    EXPECT_FALSE(user.settings.tidal.usePostPaywall);
    EXPECT_EQ(user.origin("log.level"), "-o");
    EXPECT_EQ(user.origin("tidal.api_url"), "default");

    const LoadedSettings named = load(write("other.toml", ""));
    EXPECT_EQ(named.settings.log.level, "info");
    EXPECT_EQ(load(m_folder.filePath("gone.toml")).problems.size(), 1);
    EXPECT_EQ(load(m_folder.path()).problems.size(), 1);
}

TEST_F(SettingsLoaderTest, ModulesHaveSectionsOfTheirOwn)
{
    const QString file =
        write("m.toml", "[modules]\nfiles = [\"a/b.so\", \"/c.so\"]\n[module.b]\nprefix = \"/x\"\n"
                        "rate = 2\nnames = [\"n\"]\n[module.b.deep]\non = true\n");
    const LoadedSettings loaded = load(file, {"module.b.rate=3", "module.c.name=d"});
    ASSERT_EQ(loaded.problems, QStringList());
    const ModuleSettings& modules = loaded.settings.modules;
    EXPECT_EQ(modules.files, (QStringList{m_folder.filePath("a/b.so"), "/c.so"}));
    const QVariantHash deep{{"on", true}};
    EXPECT_EQ(modules.sections["b"],
              (QVariantHash{
                  {"prefix", "/x"}, {"rate", "3"}, {"names", QVariantList{"n"}}, {"deep", deep}}));
    EXPECT_EQ(modules.sections["c"], (QVariantHash{{"name", "d"}}));
}

TEST_F(SettingsLoaderTest, TakesTheClientSecretFromTheFirstPlaceThatHasOne)
{
    write("credentials/kelo.client_secret", "from credential\n");
    qputenv("CREDENTIALS_DIRECTORY", m_folder.filePath("credentials").toLocal8Bit());
    write("secret", "from file\n");
    const QByteArray section = "[tidal.oauth2]\n";
    const QByteArray file = "client_secret_file = \"secret\"\n"; // beside the settings file
    for (const auto& [content, expected] : Table<QByteArray, const char*>{
             {section + file + "client_secret = \"from setting\"", "from setting"},
             {section + file, "from file"},
             {section, "from credential"}}) {
        const LoadedSettings loaded = load(write("s.toml", content));
        EXPECT_EQ(loaded.problems, QStringList());
        EXPECT_EQ(loaded.settings.tidal.oauth2.clientSecret.reveal(), expected);
    }
}

TEST(StateDirectory, PrefersCommandLineToServiceManagerToUser)
{
    qputenv("XDG_STATE_HOME", "/user");
    qputenv("STATE_DIRECTORY", "/managed:/other");
    EXPECT_EQ(stateDirectory("/given"), "/given");
    EXPECT_EQ(stateDirectory(), "/managed");
    qunsetenv("STATE_DIRECTORY");
    EXPECT_EQ(stateDirectory(), "/user/kelo");
}

} // namespace
