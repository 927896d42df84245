#pragma once
#include <functional>
#include <kelo/HttpClient.h>
#include <memory>
#include <string>

/// A fetched picture. Never changes, so that any number of answers share it.
struct Image
{
    std::string contentType;
    QByteArray body;
};

/// What came of fetching a picture: the picture, or a status and a sentence for the client.
struct ImageResult
{
    std::shared_ptr<const Image> image;
    int status = 200;
    QString problem;
};

/// Fetches pictures over HTTP and accepts nothing but pictures: no redirects, no drawings that run
/// scripts, no bodies without end. Owned by ImageLoader; lives on the loader's thread.
class ImageFetcher : public QObject
{
    Q_OBJECT
public:
    using Done = std::function<void(const std::string& url, const ImageResult& result)>;

    explicit ImageFetcher(Done done) : m_done(std::move(done)) {}

    /// Ends in one call of `done`, later and on the thread it lives on.
    void fetch(const std::string& url);

    Q_INVOKABLE void on_answer_invoke(KeloUrl url, HttpClientPrivate userData, int status, int code,
                                      QByteArray body, HttpClientHeaders headers);

private:
    static ImageResult result(int status, int code, const QByteArray& body,
                              const HttpClientHeaders& headers);

    const Done m_done;
    HttpClient* m_client = nullptr; ///< made on the thread it lives on
};
