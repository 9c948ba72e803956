#include "Families.h"

namespace KxPlat::Lisp {

const std::vector<BuiltinTable>& Families()
{
    static const std::vector<BuiltinTable> all = {
        kSpecialForms, kArithmetic, kComparison,  kLists,    kVlLists, kApplication, kTypes,
        kStrings,      kVlStrings,  kNumberTexts, kPrinting, kFiles,   kGeometry,    kEntities,
        kSelections,   kUserInput,  kHost,        kObjects,  kMethods, kCurves,      kMeasures,
    };
    return all;
}

}   // namespace KxPlat::Lisp
