#include "LinkPage.h"

#include "Faults.h"
#include "OAuth2.h"

namespace kelosim {

namespace {

constexpr const char* head = R"(<!doctype html>
<html lang="en"><head><meta charset="utf-8"><title>Link a device</title>
<meta name="viewport" content="width=device-width, initial-scale=1"><style>
:root { color-scheme: light dark; font: 1.1rem/1.5 system-ui, sans-serif }
body { max-width: 24em; margin: 12vh auto; padding: 0 1em; text-align: center }
.code { font: 700 2.2rem ui-monospace, monospace; letter-spacing: .2em }
button, input { font: inherit; padding: .6em 1.4em; border-radius: .5em; border: 1px solid #777 }
button { margin: .3em; cursor: pointer }
.main { background: #0b6b3a; border-color: #0b6b3a; color: #fff }
input { width: 8em; text-align: center; text-transform: uppercase }
small { opacity: .75 }
</style></head><body><main>)";

constexpr const char* tail = "<p><small>A simulated service: no real account is "
                             "involved.</small></p></main></body></html>\n";

constexpr const char* codeForm =
    R"(<form action="/link"><p><label>Code <input name="userCode" maxlength="16" required
autocomplete="off" autofocus></label></p><p><button class="main">Go on</button></p></form>)";

HttpResponse page(int status, const std::string& content)
{
    HttpResponse response = HttpResponse::html(status, head + content + tail);
    response.headers.emplace_back("Cache-Control", "no-store");
    return response;
}

HttpResponse notWaiting(const std::string& userCode)
{
    return page(404, "<h1>No login waits for this code</h1><p class=\"code\">" +
                         escapeHtml(userCode) +
                         "</p><p>It has ended, or was used already. Look at the device for the "
                         "present one.</p>" +
                         codeForm);
}

} // namespace

HttpResponse LinkPage::handle(const HttpRequest& request)
{
    if (request.method == "POST") {
        const Pairs form = parsePairs(request.body);
        return decide(upperAscii(textKey(form, "userCode")), textKey(form, "answer"));
    }
    const std::string code = upperAscii(
        request.segments.size() > 1 ? request.segments[1] : request.queryValue("userCode"));
    if (code.empty())
        return page(200, std::string("<h1>Link a device</h1><p>Enter the code that the device "
                                     "shows.</p>") +
                             codeForm);
    if (!m_oauth2.isWaiting(code))
        return notWaiting(code);
    const std::string shown = escapeHtml(code);
    return page(200,
                "<h1>Link a device</h1><p>A device asks to play music with your account. Is "
                "this the code that it shows?</p><p class=\"code\">" +
                    shown +
                    "</p><form method=\"post\" action=\"/link\"><input type=\"hidden\" "
                    "name=\"userCode\" value=\"" +
                    shown +
                    "\"><button class=\"main\" name=\"answer\" value=\"confirm\">Confirm"
                    "</button><button name=\"answer\" value=\"refuse\">Refuse</button></form>");
}

HttpResponse LinkPage::decide(const std::string& userCode, const std::string& answer)
{
    if (answer != "confirm" && answer != "refuse")
        return page(400, "<h1>That was no answer</h1>");
    const bool isConfirmed = answer == "confirm";
    if (!m_oauth2.decide(userCode, isConfirmed))
        return notWaiting(userCode);
    return page(200, isConfirmed ? "<h1>Confirmed</h1><p>The device logs in within a few seconds. "
                                   "You can close this page.</p>"
                                 : "<h1>Refused</h1><p>The device is not logged in. You can close "
                                   "this page.</p>");
}

} // namespace kelosim
