#include "KeloRolesType.h"

QString KeloRolesType::toString(int value)
{
    switch (value) {
    case Container_:
        return Container();
    case Action_:
        return Action();
    case Audio_:
        return Audio();
    case Text_:
        return Text();
    case Choice_:
        return Choice();
    case Header_:
        return Header();
    }
    return QString::number(value);
}

QString KeloRolesContainerType::toString(int value)
{
    switch (value) {
    case None_:
        return None();
    case List_:
        return List();
    case Search_:
        return Search();
    }
    return QString::number(value);
}
