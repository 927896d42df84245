// One rows request through the whole chain, a bare libcurl fetch of the same body, and notices
// among many open paths, for counting instructions. Modes:
//   service              serves until stdin ends; prints its address and a token
//   chain URL TOKEN N    N rows requests, from CMRoot::request to the finished reply
//   curl URL TOKEN N     N fetches with one easy handle that keeps its connection
//   notices PATHS N      N notices for one of so many open paths
#include "ModuleBed.h"
#include <curl/curl.h>
#include <iostream>
#include <kelo/CMRoot.h>
#include <kelosim/SimServer.h>
#include <limits>
#include <log4cplus/initializer.h>
#include <log4cplus/logger.h>
#include <log4cplus/loglevel.h>
#include <QCoreApplication>
#include <unistd.h>
#include <vector>

namespace {
const char* const listPath = "/tidal/req/featured/new/tracks";
const char* const listUrl = "/v1/featured/new/tracks?countryCode=NO&offset=0&limit=50";

int serve()
{
    // Uncompressed, so that inflating the body does not hide what the chain costs.
    kelosim::SimOptions options;
    options.faults = {"plain"};
    kelosim::SimServer sim(options);
    std::string error;
    if (!sim.start(&error)) {
        std::cerr << error << "\n";
        return 1;
    }
    std::cout << sim.baseUrl() << " " << sim.issueToken() << std::endl;
    std::cin.ignore(std::numeric_limits<std::streamsize>::max());
    return 0;
}

int chain(const QString& url, const QString& token, int count)
{
    ModuleBed bed;
    bed.setService(url.toStdString());
    bed.start();
    bed.setLoggedIn(true, token);
    // Kept, so that what is counted ends with the finished reply: dropping the rows comes after it.
    std::vector<CMGetRowsRequest> answered;
    for (int i = 0; i < count; ++i) {
        const CMGetRowsRequest request(CMPath(QString::fromUtf8(listPath)), 0, 49,
                                       ModuleBed::allRoles());
        CMRoot().request(request);
        request.reply().waitForFinished(-1);
        if (request.reply().value().size() != 50) {
            std::cerr << request.reply().error().message().toStdString() << "\n";
            return 1;
        }
        answered.push_back(request);
    }
    _exit(0);
}

std::size_t collect(char* data, std::size_t size, std::size_t count, void* body)
{
    static_cast<std::string*>(body)->append(data, size * count);
    return size * count;
}

int fetch(const std::string& url, const std::string& token, int count)
{
    curl_global_init(CURL_GLOBAL_DEFAULT);
    CURL* easy = curl_easy_init();
    curl_slist* headers = curl_slist_append(nullptr, ("Authorization: Bearer " + token).c_str());
    std::string body;
    curl_easy_setopt(easy, CURLOPT_URL, (url + listUrl).c_str());
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, 30000L);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, collect);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
    int result = 0;
    for (int i = 0; i < count && !result; ++i) {
        body.clear();
        result = curl_easy_perform(easy) != CURLE_OK || body.empty();
    }
    curl_slist_free_all(headers);
    curl_easy_cleanup(easy);
    return result;
}

int notices(int paths, int count)
{
    CMSubscribe subscribe;
    int told = 0;
    for (int i = 0; i < paths; ++i)
        subscribe.openRows(CMPath(QStringLiteral("/tidal/list/%1").arg(i)),
                           [&told](const CMRowsNotice&) { ++told; });
    const CMPath path(QStringLiteral("/tidal/list/7"));
    for (int i = 0; i < count; ++i)
        subscribe.rowsChanged(path, CMSubscribe::RowsChangeReset(), 50);
    return told == count ? 0 : 1;
}
} // namespace

int main(int argc, char** argv)
{
    const log4cplus::Initializer logging;
    log4cplus::Logger::getRoot().setLogLevel(log4cplus::OFF_LOG_LEVEL);
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.value(1) == QLatin1String("service"))
        return serve();
    if (arguments.size() == 5 && arguments.at(1) == QLatin1String("chain"))
        return chain(arguments.at(2), arguments.at(3), arguments.at(4).toInt());
    if (arguments.size() == 5 && arguments.at(1) == QLatin1String("curl"))
        return fetch(arguments.at(2).toStdString(), arguments.at(3).toStdString(),
                     arguments.at(4).toInt());
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String("notices"))
        return notices(arguments.at(2).toInt(), arguments.at(3).toInt());
    std::cerr << "usage: kelo-chain-bench service | chain URL TOKEN N | curl URL TOKEN N | "
                 "notices PATHS N\n";
    return 2;
}
