#include "KeloTidalTypes.h"

namespace {
/// The texts of an enumeration that counts from zero, in its order.
template <int size>
struct Words
{
    const QString* words[size];

    const QString& text(int value) const
    {
        return value > 0 && value < size ? *words[value] : *words[0];
    }
    int value(const QString& text) const
    {
        for (int i = 0; i < size; ++i) {
            if (*words[i] == text)
                return i;
        }
        return 0;
    }
};

const Words<7>& orderWords()
{
    using Order = KeloTidalOrder;
    static const Words<7> words{{&Order::Name(), &Order::Date(), &Order::Artist(), &Order::Album(),
                                 &Order::Length(), &Order::Index(), &Order::ReleaseDate()}};
    return words;
}

const Words<2>& directionWords()
{
    static const Words<2> words{
        {&KeloTidalOrderDirection::Asc(), &KeloTidalOrderDirection::Desc()}};
    return words;
}

const Words<3>& filterWords()
{
    using Filter = KeloTidalFilter;
    static const Words<3> words{{&Filter::All(), &Filter::Public(), &Filter::Private()}};
    return words;
}

const Words<4>& qualityWords()
{
    using Quality = KeloTidalSoundQualities;
    static const Words<4> words{
        {&Quality::Low(), &Quality::High(), &Quality::Lossless(), &Quality::HiRes()}};
    return words;
}
} // namespace

QString KeloTidalOrder::toString(Enum value)
{
    return orderWords().text(value);
}

KeloTidalOrder::Enum KeloTidalOrder::fromString(const QString& text)
{
    return Enum(orderWords().value(text));
}

QString KeloTidalOrderDirection::toString(Enum value)
{
    return directionWords().text(value);
}

KeloTidalOrderDirection::Enum KeloTidalOrderDirection::fromString(const QString& text)
{
    return Enum(directionWords().value(text));
}

QString KeloTidalFilter::toString(Enum value)
{
    return filterWords().text(value);
}

KeloTidalFilter::Enum KeloTidalFilter::fromString(const QString& text)
{
    return Enum(filterWords().value(text));
}

QString KeloTidalSoundQualities::toString(Enum value)
{
    return qualityWords().text(value);
}

KeloTidalSoundQualities::Enum KeloTidalSoundQualities::fromString(const QString& text)
{
    return Enum(qualityWords().value(text));
}

QStringList KeloTidalSoundQualities::words()
{
    return {Low(), High(), Lossless(), HiRes()};
}

KeloTidalSoundQualities::Enum KeloTidalSoundQuality::soundQuality() const
{
    const int number = value(SoundQuality()).toInt();
    const bool isKnown =
        number >= KeloTidalSoundQualities::LOW_ && number <= KeloTidalSoundQualities::HI_RES_;
    return isKnown ? KeloTidalSoundQualities::Enum(number) : KeloTidalSoundQualities::LOW_;
}

void KeloTidalSoundQuality::setSoundQuality(KeloTidalSoundQualities::Enum quality)
{
    insert(SoundQuality(), int(quality));
}

KeloTidalSoundQuality KeloTidalAccount::highestSoundQuality() const
{
    return KeloTidalSoundQuality(value(HighestSoundQuality()).toHash());
}

void KeloTidalAccount::setHighestSoundQuality(const KeloTidalSoundQuality& quality)
{
    insert(HighestSoundQuality(), quality.toVariant());
}
