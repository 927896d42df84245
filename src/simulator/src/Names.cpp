#include "Names.h"

#include "Text.h"

#include <map>
#include <vector>

namespace kelosim {

namespace {

using Words = std::vector<std::string>;

Words words(const char* text)
{
    return split(text, '|');
}

// Words by the letter that stands for them in a pattern.
const std::map<char, Words> lists = {
    {'a', words("Velvet|Paper|Glass|Silent|Copper|Northern|Hollow|Amber|Distant|Electric|Salt|"
                "Winter|Golden|Broken|Quiet|Crimson|Little|Wooden|Marble|Neon|Slow|Second|Blue|"
                "Wandering|Hidden|Silver|Restless|Tender|Burning|Open")},
    {'n', words("Harbour|Weather|Ferry|Lantern|Signal|River|Engine|Orchard|Meridian|Compass|"
                "Garden|Station|Mirror|Tide|Letter|Window|Mountain|Sparrow|Avenue|Radio|Shadow|"
                "Bridge|Island|Carousel|Thunder|Whisper|Cinema|Harvest|Tower|Comet")},
    {'f', words("Anna|Ida|Lars|Marit|Elias|Nora|Tomas|Maya|Jonas|Clara|Ruth|Owen|Ines|Hugo|Freya|"
                "Samir|Lucía|Zoë|Björn|Aoife|René|Søren|Łucja|Márta|Theo|Imani|Kenji|Priya")},
    {'l', words("Kvist|Holm|Okafor|Lindqvist|Moreau|Castellan|Varga|Brandt|Nygård|Fairweather|"
                "Delacroix|Sørli|Ibáñez|Tanaka|Weiss|Marlowe|Ashdown|Ferreira|Novák|O'Dell|Raske|"
                "Whitlock|Çelik|Duarte")},
    {'v', words("Leaving|Chasing|Waiting for|Dreaming of|Under|Beyond|Dancing with|Return to|"
                "Letters from|Falling into")},
    {'k', words("Essentials|Hits|Deep Cuts|Morning|After Dark|Discoveries|Classics|Unplugged|"
                "Road Trip|Focus")},
    {'m', words("Night Mix|Live in Bergen|Remastered 2011|Acoustic|Radio Edit|Demo|Instrumental|"
                "feat. Ida Holm")},
    {'s', words("Recorded in one room, it|Critics agree that this|Between two tours it|"
                "For the first time this|Without any hurry it")},
    {'c', words("brings back|leaves behind|circles around|borrows from|looks across")}};

// Phrases in other languages and scripts, and odd ones at last.
const std::vector<Words> phrases = {
    words("Kveldslys|Nattåpent|Bølgegang|Fjellvind|Stille regn|Østover|Isblått|Vårsøg|Gråvær|"
          "Ærlig talt"),
    words("Übermorgen|Glühwürmchen|Zwischen den Zügen|Straßenlaterne|Fernweh|Nebelküste|"
          "Schöne Grüße|Großstadtflüstern"),
    words("Été sans fin|La dernière gare|Cœur d'ardoise|Près du phare|Garçon d'octobre|"
          "L'heure bleue|Forêt noire|À demi-mot"),
    words("Corazón de sal|Mañana otra vez|El último tren|Niña del viento|Canción pequeña|"
          "¿Dónde estás?|Luz de enero|Camino al mar"),
    words("夕方の電車|青い灯台|静かな海|星めぐり|雨のあと|紙飛行機|遠い声|夜明け前"),
    words("Тихая гавань|Северный ветер|Бумажные звёзды|Ночной поезд|Белые берега|Жёлтый свет"),
    words("ليل المدينة|صوت المرفأ|نجمة الصباح|אור ראשון|רחוב הים|حديقة الورق"),
    words("Νυχτερινό φως|Το λιμάνι|Άσπρο κύμα|Μικρή θάλασσα"),
    words("AM/PM|Rock & Rain|\"Untitled\"|100% Cotton|50/50 <Live>|Café #7|One + One = Three|"
          "🌙 Moonlit|Sunday 🎈|C:\\Drive|What?|Track; Two|Semi:Colon|(Parentheses)|[Brackets]")};

const std::string& pick(const Words& words, std::uint64_t number, std::uint64_t salt)
{
    return words[mix(number, salt) % words.size()];
}

// The pattern with words in place of "{LETTER SALT}": "{a4} {n5}" is an adjective and a noun.
std::string filled(std::string pattern, std::uint64_t number)
{
    for (std::size_t at = 0; (at = pattern.find('{', at)) != std::string::npos;) {
        const std::size_t end = pattern.find('}', at);
        const auto salt = toNumber(pattern.substr(at + 2, end - at - 2)).value_or(0);
        const std::string& word = pick(lists.at(pattern[at + 1]), number, std::uint64_t(salt));
        pattern.replace(at, end + 1 - at, word);
        at += word.size();
    }
    return pattern;
}

// A phrase out of one of the other languages, "" for three quarters of the numbers.
std::string foreign(std::uint64_t number)
{
    const std::uint64_t hash = mix(number, 100);
    return hash % 4 == 0 ? pick(phrases[hash / 4 % phrases.size()], number, 101) : "";
}

} // namespace

std::string artistName(std::uint64_t number)
{
    static const char* const patterns[] = {"The {a4} {n5}s",
                                           "{a6} {n7}",
                                           "{f1} {l2} & the {n8}s",
                                           "DJ {a9} {n10}",
                                           "{a12} {n13} Ensemble",
                                           "{l2} Quartet",
                                           "{f1} {l2}",
                                           "{f1} {l2}"};
    const std::uint64_t form = mix(number, 3) % 8;
    const std::string phrase = form == 4 ? foreign(mix(number, 11) * 4) : "";
    return phrase.empty() ? filled(patterns[form], number) : phrase;
}

std::string albumTitle(std::uint64_t number)
{
    static const char* const patterns[] = {"{n23} & {n24}", "{v25} the {n26}",
                                           "Songs from the {a27} {n28}", "The {n29} Sessions",
                                           "{a30} {n31}"};
    const std::string phrase = foreign(number);
    if (phrase.empty())
        return filled(patterns[mix(number, 22) % 5], number);
    return mix(number, 20) % 3 == 0 ? phrase : phrase + filled(" – {n21}", number);
}

std::string trackTitle(std::uint64_t number)
{
    static const char* const patterns[] = {"{v41} the {n42}", "{n43}",       "{n44} in {a45}",
                                           "{f46}'s {n47}",   "{a48} {n49}", "{a48} {n49}"};
    const std::string phrase = foreign(number);
    return phrase.empty() ? filled(patterns[mix(number, 40) % 6], number) : phrase;
}

std::string playlistTitle(std::uint64_t number)
{
    return filled("{a60} {n61}: {k62}", number);
}

std::string versionText(std::uint64_t number)
{
    return filled("{m70}", number);
}

std::string longTitle(std::uint64_t number, std::size_t size)
{
    std::string text = trackTitle(number);
    for (std::uint64_t i = 1; text.size() < size; ++i)
        text += ", or " + trackTitle(number + i);
    return text;
}

std::string sentence(std::uint64_t number)
{
    return filled("{s80} {c81} the ", number) + lowerAscii(filled("{a82} {n83}", number)) + ".";
}

} // namespace kelosim
