#include "KeloTidalTypes.h"

KeloTidalSoundQualities::Enum KeloTidalSoundQuality::soundQuality() const
{
    const int number = value(SoundQuality()).toInt();
    const bool isKnown = number >= 0 && number <= KeloTidalSoundQualities::HI_RES_;
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
