#include "TextCatalogues.h"

#include <kelo/KeloLog.h>
#include <mutex>
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

struct TextCatalogues::Language
{
    explicit Language(const char* tag) : catalogue(QString::fromLatin1(tag)) {}

    const TextCatalogue& read()
    {
        std::call_once(isRead, [this] {
            add(catalogue, QStringLiteral("kelo_tidal"));
            add(catalogue, QStringLiteral("kelo_page"));
        });
        return catalogue;
    }

    TextCatalogue catalogue;
    std::once_flag isRead;
};

TextCatalogues::TextCatalogues()
{
    loadBuiltIn();
    for (const char* tag : {"en", "de", "fr", "ja", "nb"})
        m_languages.push_back(std::make_unique<Language>(tag));
}

TextCatalogues::~TextCatalogues() = default;

TextCatalogues::Language* TextCatalogues::find(const QString& tag) const
{
    // Whoever reads Norwegian of either kind reads Bokmål.
    QString primary = tag.trimmed().section(QLatin1Char('-'), 0, 0).toLower();
    if (primary == QLatin1String("no") || primary == QLatin1String("nn"))
        primary = QStringLiteral("nb");
    for (const auto& language : m_languages) {
        if (language->catalogue.language() == primary)
            return language.get();
    }
    return nullptr;
}

const TextCatalogue& TextCatalogues::choose(const QString& language,
                                            const QString& acceptLanguage) const
{
    Language* const english = m_languages.front().get();
    Language* best = nullptr;
    if (!language.isEmpty()) {
        best = find(language);
    } else {
        int bestQuality = 0;
        const QStringList ranges = acceptLanguage.split(QLatin1Char(','));
        for (const QString& range : ranges) {
            const int quality = qualityOf(range.section(QLatin1Char(';'), 1));
            Language* found = find(range.section(QLatin1Char(';'), 0, 0));
            if (found && quality > bestQuality) {
                best = found;
                bestQuality = quality;
            }
        }
    }
    return best && best != english ? best->read() : english->catalogue;
}
