#include "AudioOutput.h"
#include "GstOutput.h"
#include "NullOutput.h"

std::unique_ptr<AudioOutput> AudioOutput::create(const QString& description, TimeSource& time,
                                                 QString* error)
{
    if (description == QLatin1String("null"))
        return std::make_unique<NullOutput>(time);
    return GstOutput::create(description, error);
}
