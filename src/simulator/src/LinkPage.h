#pragma once

#include "HttpMessage.h"

namespace kelosim {

class OAuth2;

// The pages behind the verification address, for a person with a browser: GET /link asks for the
// code, GET /link/CODE for the decision, POST /link takes it. Owned by SimServer, any thread. It
// keeps nothing; the logins are OAuth2's.
class LinkPage
{
public:
    explicit LinkPage(OAuth2& oauth2) : m_oauth2(oauth2) {}

    HttpResponse handle(const HttpRequest& request);

private:
    HttpResponse decide(const std::string& userCode, const std::string& answer);

    OAuth2& m_oauth2;
};

} // namespace kelosim
