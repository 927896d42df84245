#pragma once
#include "KeloExport.h"
#include "KeloNames.h"
#include <QMetaType>

/// What a row is. Rows carry the name as text; setters take the number.
struct KELO_EXPORT KeloRolesType
{
    enum Enum {
        Container_ = 1, ///< opens into rows
        Action_ = 2,    ///< is activated by a value sent to it
        Audio_ = 3,     ///< can be played
        Text_ = 6,      ///< says something, does nothing
        Choice_ = 101,  ///< one of the values of a setting
        Header_ = 103   ///< leads a group of rows
    };
    KELO_NAME(Container, "Container")
    KELO_NAME(Action, "Action")
    KELO_NAME(Audio, "Audio")
    KELO_NAME(Text, "Text")
    KELO_NAME(Choice, "Choice")
    KELO_NAME(Header, "Header")
    /// The name; the number as text for a value without a name.
    static QString toString(int value);
};

/// How a container's rows are meant to be shown.
struct KELO_EXPORT KeloRolesContainerType
{
    enum Enum {
        None_ = 0,    ///< nothing special
        List_ = 100,  ///< a menu, form or other list that is not a list of music
        Search_ = 101 ///< leads to a search
    };
    KELO_NAME(None, "None")
    KELO_NAME(List, "List")
    KELO_NAME(Search, "Search")
    static QString toString(int value);
};

/// What kind of audio a row is.
struct KELO_EXPORT KeloRolesAudioType
{
    KELO_NAME(None, "None")
    KELO_NAME(MusicTrack, "MusicTrack")
};

/// What kinds of rows a container holds.
struct KELO_EXPORT KeloRowsRolesType
{
    enum Enum {
        Default_ = 0 ///< rows of any kind
    };
};

/// What an event of an action reply asks the client to do.
struct KELO_EXPORT KeloEventRowsType
{
    enum Enum {
        Reload_ = 1 ///< ask again for the rows at the event's path
    };
};

Q_DECLARE_METATYPE(KeloRolesType::Enum)
Q_DECLARE_METATYPE(KeloRolesContainerType::Enum)
