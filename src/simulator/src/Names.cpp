#include "Names.h"

#include "Text.h"

#include <vector>

namespace kelosim {

namespace {

using Words = std::vector<const char*>;

const char* pick(const Words& words, std::uint64_t number, int salt)
{
    return words[mix(number, static_cast<std::uint64_t>(salt)) % words.size()];
}

const Words adjectives = {"Velvet", "Paper",  "Glass",    "Silent",   "Copper",  "Northern",
                          "Hollow", "Amber",  "Distant",  "Electric", "Salt",    "Winter",
                          "Golden", "Broken", "Quiet",    "Crimson",  "Little",  "Wooden",
                          "Marble", "Neon",   "Slow",     "Second",   "Blue",    "Wandering",
                          "Hidden", "Silver", "Restless", "Tender",   "Burning", "Open"};
const Words nouns = {"Harbour", "Weather", "Ferry",    "Lantern", "Signal",   "River",
                     "Engine",  "Orchard", "Meridian", "Compass", "Garden",   "Station",
                     "Mirror",  "Tide",    "Letter",   "Window",  "Mountain", "Sparrow",
                     "Avenue",  "Radio",   "Shadow",   "Bridge",  "Island",   "Carousel",
                     "Thunder", "Whisper", "Cinema",   "Harvest", "Tower",    "Comet"};
const Words firstNames = {"Anna",  "Ida",   "Lars",  "Marit", "Elias", "Nora",  "Tomas",
                          "Maya",  "Jonas", "Clara", "Ruth",  "Owen",  "Ines",  "Hugo",
                          "Freya", "Samir", "Lucía", "Zoë",   "Björn", "Aoife", "René",
                          "Søren", "Łucja", "Márta", "Theo",  "Imani", "Kenji", "Priya"};
const Words lastNames = {"Kvist",  "Holm",   "Okafor", "Lindqvist",   "Moreau",    "Castellan",
                         "Varga",  "Brandt", "Nygård", "Fairweather", "Delacroix", "Sørli",
                         "Ibáñez", "Tanaka", "Weiss",  "Marlowe",     "Ashdown",   "Ferreira",
                         "Novák",  "O'Dell", "Raske",  "Whitlock",    "Çelik",     "Duarte"};
const Words verbs = {"Leaving", "Chasing",      "Waiting for", "Dreaming of",  "Under",
                     "Beyond",  "Dancing with", "Return to",   "Letters from", "Falling into"};

const Words norwegian = {"Kveldslys", "Nattåpent", "Bølgegang", "Fjellvind", "Stille regn",
                         "Østover",   "Isblått",   "Vårsøg",    "Gråvær",    "Ærlig talt"};
const Words german = {"Übermorgen", "Glühwürmchen", "Zwischen den Zügen", "Straßenlaterne",
                      "Fernweh",    "Nebelküste",   "Schöne Grüße",       "Großstadtflüstern"};
const Words french = {"Été sans fin",     "La dernière gare", "Cœur d'ardoise", "Près du phare",
                      "Garçon d'octobre", "L'heure bleue",    "Forêt noire",    "À demi-mot"};
const Words spanish = {"Corazón de sal",  "Mañana otra vez", "El último tren", "Niña del viento",
                       "Canción pequeña", "¿Dónde estás?",   "Luz de enero",   "Camino al mar"};
const Words japanese = {"夕方の電車", "青い灯台", "静かな海", "星めぐり",
                        "雨のあと",   "紙飛行機", "遠い声",   "夜明け前"};
const Words cyrillic = {"Тихая гавань", "Северный ветер", "Бумажные звёзды",
                        "Ночной поезд", "Белые берега",   "Жёлтый свет"};
const Words rightToLeft = {"ليل المدينة", "صوت المرفأ", "نجمة الصباح",
                           "אור ראשון",   "רחוב הים",   "حديقة الورق"};
const Words greek = {"Νυχτερινό φως", "Το λιμάνι", "Άσπρο κύμα", "Μικρή θάλασσα"};
const Words oddities = {
    "AM/PM",   "Rock & Rain",       "\"Untitled\"", "100% Cotton",   "50/50 <Live>",
    "Café #7", "One + One = Three", "🌙 Moonlit",    "Sunday 🎈",      "C:\\Drive",
    "What?",   "Track; Two",        "Semi:Colon",   "(Parentheses)", "[Brackets]"};

// A phrase out of one of the other languages, nullptr for three quarters of the numbers.
const char* foreign(std::uint64_t number)
{
    static const std::vector<const Words*> tables = {&norwegian,   &german,   &french,
                                                     &spanish,     &japanese, &cyrillic,
                                                     &rightToLeft, &greek,    &oddities};
    const std::uint64_t hash = mix(number, 100);
    if (hash % 4 != 0)
        return nullptr;
    return pick(*tables[hash / 4 % tables.size()], number, 101);
}

std::string pair(std::uint64_t number, int salt)
{
    return std::string(pick(adjectives, number, salt)) + " " + pick(nouns, number, salt + 1);
}

} // namespace

std::string artistName(std::uint64_t number)
{
    const std::string first = pick(firstNames, number, 1);
    const std::string last = pick(lastNames, number, 2);
    switch (mix(number, 3) % 8) {
    case 0:
        return "The " + pair(number, 4) + "s";
    case 1:
        return pair(number, 6);
    case 2:
        return first + " " + last + " & the " + pick(nouns, number, 8) + "s";
    case 3:
        return "DJ " + pair(number, 9);
    case 4: {
        const char* phrase = foreign(mix(number, 11) * 4);
        return phrase ? std::string(phrase) : pair(number, 12) + " Ensemble";
    }
    case 5:
        return last + " Quartet";
    default:
        return first + " " + last;
    }
}

std::string albumTitle(std::uint64_t number)
{
    if (const char* phrase = foreign(number)) {
        return mix(number, 20) % 3 == 0 ? std::string(phrase)
                                        : std::string(phrase) + " – " + pick(nouns, number, 21);
    }
    switch (mix(number, 22) % 5) {
    case 0:
        return std::string(pick(nouns, number, 23)) + " & " + pick(nouns, number, 24);
    case 1:
        return std::string(pick(verbs, number, 25)) + " the " + pick(nouns, number, 26);
    case 2:
        return "Songs from the " + pair(number, 27);
    case 3:
        return std::string("The ") + pick(nouns, number, 29) + " Sessions";
    default:
        return pair(number, 30);
    }
}

std::string trackTitle(std::uint64_t number)
{
    if (const char* phrase = foreign(number))
        return phrase;
    switch (mix(number, 40) % 6) {
    case 0:
        return std::string(pick(verbs, number, 41)) + " the " + pick(nouns, number, 42);
    case 1:
        return pick(nouns, number, 43);
    case 2:
        return std::string(pick(nouns, number, 44)) + " in " + pick(adjectives, number, 45);
    case 3:
        return std::string(pick(firstNames, number, 46)) + "'s " + pick(nouns, number, 47);
    default:
        return pair(number, 48);
    }
}

std::string playlistTitle(std::uint64_t number)
{
    static const Words kinds = {"Essentials",  "Hits",     "Deep Cuts", "Morning",   "After Dark",
                                "Discoveries", "Classics", "Unplugged", "Road Trip", "Focus"};
    return pair(number, 60) + ": " + pick(kinds, number, 62);
}

std::string versionText(std::uint64_t number)
{
    static const Words versions = {"Night Mix",    "Live in Bergen", "Remastered 2011",
                                   "Acoustic",     "Radio Edit",     "Demo",
                                   "Instrumental", "feat. Ida Holm"};
    return pick(versions, number, 70);
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
    static const Words starts = {"Recorded in one room, it", "Critics agree that this",
                                 "Between two tours it", "For the first time this",
                                 "Without any hurry it"};
    static const Words middles = {"brings back", "leaves behind", "circles around", "borrows from",
                                  "looks across"};
    return std::string(pick(starts, number, 80)) + " " + pick(middles, number, 81) + " the " +
           lowerAscii(pair(number, 82)) + ".";
}

} // namespace kelosim
