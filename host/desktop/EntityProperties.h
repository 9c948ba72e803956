// What there is to know of selected entities, as names and values ready to be shown.
#pragma once
#include "db/AcDbEntity.h"
#include <QStringList>
#include <vector>

namespace KxDesktop {

struct PropertyRow {
    enum class Choice { None, Layer, Color, Linetype };
    QString name;
    QString value;
    Choice choice = Choice::None;
    bool operator==(const PropertyRow&) const = default;
};

struct EntityProperties {
    QString title;
    std::vector<PropertyRow> general;
    std::vector<PropertyRow> geometry;   // of one entity; of several what they have in common
    bool operator==(const EntityProperties&) const = default;
};

// Where values differ, one word stands for them. Only the first `kMostRead` entities are read.
constexpr size_t kMostRead = 2000;
EntityProperties PropertiesOf(const std::vector<AcDbObjectId>& ids);
// Names of the records of the layer or linetype table, sorted.
QStringList NamesFor(AcDbDatabase& database, PropertyRow::Choice choice);

}   // namespace KxDesktop
