#include "console/run/machine.h"

#include "odbc/engine/types.h"

namespace kodra::console {

namespace ad = platform::ad;

ColumnKind KindOfType(std::int32_t adoType) {
  switch (adoType) {
    case ad::kBoolean:
      return ColumnKind::kFlag;
    case ad::kDBDate:
      return ColumnKind::kDay;
    case ad::kDate:
    case ad::kDBTime:
    case ad::kDBTimeStamp:
      return ColumnKind::kMoment;
    case ad::kSmallInt:
    case ad::kInteger:
    case ad::kSingle:
    case ad::kDouble:
    case ad::kCurrency:
    case ad::kDecimal:
    case ad::kTinyInt:
    case ad::kUnsignedTinyInt:
    case ad::kUnsignedSmallInt:
    case ad::kUnsignedInt:
    case ad::kBigInt:
    case ad::kUnsignedBigInt:
    case ad::kNumeric:
      return ColumnKind::kNumber;
    default:
      return ColumnKind::kText;
  }
}

}  // namespace kodra::console
