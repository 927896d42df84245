// One list answer of the service, from its body to the finished rows reply, or parsed by Qt alone:
// what callgrind is to count stands between two toggles of its collection.
#include "ModuleBed.h"
#include <cstdio>
#include <httplib.h>
#include <kelosim/SimServer.h>
#include <QCoreApplication>
#include <QJsonDocument>
#include <valgrind/callgrind.h>

namespace {
struct List
{
    const char* name;
    const char* path;    ///< in the content tree
    const char* service; ///< target at the service
};

const List lists[] = {
    {"tracks", "/tidal/req/albums?contentId=1", nullptr},
    {"albums", "/tidal/req/featured/new/albums", "/featured/new/albums"},
    {"artists", "/tidal/search/choose/req/artists?query=a", "/search/artists?query=a"},
    {"playlists", "/tidal/req/featured/new/playlists", "/featured/new/playlists"},
};

/// What the HTTP client leaves behind each body, so that it is parsed where it stands.
constexpr int parserRoom = 64;

QByteArray bodyOf(const List& list, kelosim::SimServer& sim)
{
    if (!list.service)
        return QByteArray::fromStdString(sim.tracksBody(50));
    std::string target = std::string("/v1") + list.service;
    target += target.find('?') == std::string::npos ? '?' : '&';
    target += "countryCode=NO&offset=0&limit=50";
    httplib::Client client(sim.baseUrl());
    const auto answer = client.Get(target, {{"Authorization", "Bearer " + sim.issueToken()}});
    return answer ? QByteArray::fromStdString(answer->body) : QByteArray();
}

/// Switches callgrind's collection over, in the run that counts.
void toggleCollection(bool isCounted)
{
    if (isCounted)
        CALLGRIND_TOGGLE_COLLECT;
}

/// Returns the number of rows.
int countRows(ModuleBed& bed, const List& list, const QByteArray& body, bool isCounted)
{
    const CMPath path = CMPath::fromEncoded(QLatin1String(list.path));
    const CMGetRowsRequest request(path, 0, 49, ModuleBed::allRoles());
    const HttpClientPrivate userData{HttpClientPrivate::Data(request)};
    TidalNodeResponder* responder = bed.worker()->getHandler()->responder();
    const KeloUrl url;
    const HttpClientHeaders headers;
    toggleCollection(isCounted);
    responder->on_baseResponse_invoke(url, userData, 200, 0, body, headers);
    toggleCollection(isCounted);
    return request.reply().value().rows().toList().size();
}

int countParsing(const QByteArray& body, bool isCounted)
{
    toggleCollection(isCounted);
    const QJsonDocument document = QJsonDocument::fromJson(body);
    toggleCollection(isCounted);
    return document.isObject() ? 1 : 0;
}
} // namespace

/// Arguments: the list, and "rows" or "parse". Without arguments the lists are named.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        for (const List& list : lists)
            std::printf("%s\n", list.name);
        return argc == 1 ? 0 : 2;
    }
    const bool isRows = QByteArray(argv[2]) == "rows";
    kelosim::SimServer sim{kelosim::SimOptions()};
    std::string error;
    if (!sim.start(&error)) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    ModuleBed bed;
    bed.start();
    for (const List& list : lists) {
        if (QByteArray(argv[1]) != list.name)
            continue;
        QByteArray body = bodyOf(list, sim);
        if (body.isEmpty()) {
            std::fprintf(stderr, "%s: the service sent nothing\n", list.name);
            return 1;
        }
        body.reserve(body.size() + parserRoom);
        int result = 0;
        // The first run fills caches and static texts, the second one counts.
        for (const bool isCounted : {false, true}) {
            bed.onWorker([&](TidalHandler&) {
                result =
                    isRows ? countRows(bed, list, body, isCounted) : countParsing(body, isCounted);
            });
        }
        std::printf("%s: %d bytes, %d\n", list.name, int(body.size()), result);
        return result > 0 ? 0 : 1;
    }
    return 2;
}
