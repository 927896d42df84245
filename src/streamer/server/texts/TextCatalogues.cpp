#include "TextCatalogues.h"

#include <kelo/KeloLog.h>
#include <QFile>

/// Outside of every namespace, as the macro declares a function.
static void loadBuiltIn()
{
    Q_INIT_RESOURCE(translations);
}

namespace {

void add(TextCatalogue& catalogue, const QString& name)
{
    QFile file(QStringLiteral(":/translations/%1_%2.ts").arg(name, catalogue.language()));
    if (!file.open(QIODevice::ReadOnly) || !catalogue.add(file))
        KELO_LOG("Web", ERROR) << "The texts in " << file.fileName() << " are not readable";
}

/// Quality of a language range, 0 to 1000 (RFC 9110 12.4.2); 0 for one that is malformed.
int qualityOf(const QString& parameters)
{
    const QString text = parameters.trimmed();
    if (text.isEmpty())
        return 1000;
    if (!text.startsWith(QLatin1String("q="), Qt::CaseInsensitive))
        return 0;
    bool isOk = false;
    const double quality = text.mid(2).toDouble(&isOk);
    return isOk && quality >= 0 && quality <= 1 ? int(quality * 1000) : 0;
}

} // namespace

TextCatalogues::TextCatalogues()
{
    loadBuiltIn();
    m_catalogues.push_back(std::make_unique<TextCatalogue>(QStringLiteral("en")));
    for (const char* language : {"de", "fr", "ja", "nb"}) {
        auto catalogue = std::make_unique<TextCatalogue>(QString::fromLatin1(language));
        add(*catalogue, QStringLiteral("kelo_tidal"));
        add(*catalogue, QStringLiteral("kelo_page"));
        m_catalogues.push_back(std::move(catalogue));
    }
}

const TextCatalogue* TextCatalogues::find(const QString& tag) const
{
    // Whoever reads Norwegian of either kind reads Bokmål.
    QString primary = tag.trimmed().section(QLatin1Char('-'), 0, 0).toLower();
    if (primary == QLatin1String("no") || primary == QLatin1String("nn"))
        primary = QStringLiteral("nb");
    for (const auto& catalogue : m_catalogues) {
        if (catalogue->language() == primary)
            return catalogue.get();
    }
    return nullptr;
}

const TextCatalogue& TextCatalogues::choose(const QString& language,
                                            const QString& acceptLanguage) const
{
    const TextCatalogue& english = *m_catalogues.front();
    if (!language.isEmpty()) {
        const TextCatalogue* named = find(language);
        return named ? *named : english;
    }
    const TextCatalogue* best = nullptr;
    int bestQuality = 0;
    const QStringList ranges = acceptLanguage.split(QLatin1Char(','));
    for (const QString& range : ranges) {
        const int quality = qualityOf(range.section(QLatin1Char(';'), 1));
        const TextCatalogue* catalogue = find(range.section(QLatin1Char(';'), 0, 0));
        if (catalogue && quality > bestQuality) {
            best = catalogue;
            bestQuality = quality;
        }
    }
    return best ? *best : english;
}

QStringList TextCatalogues::languages() const
{
    QStringList tags;
    for (const auto& catalogue : m_catalogues)
        tags.append(catalogue->language());
    return tags;
}
