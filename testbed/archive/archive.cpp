#include "testbed/archive/archive.h"

namespace kodra::testbed {

Archive Generate(Size size) {
  const Generator generator(size);
  Archive archive;
  ForEachRecordType([&]<class Record>() {
    auto& rows = archive.Of<Record>();
    const std::int64_t count = generator.Count<Record>();
    rows.reserve(static_cast<std::size_t>(count));
    for (std::int64_t row = 0; row < count; ++row) rows.push_back(generator.Row<Record>(row));
  });
  return archive;
}

}  // namespace kodra::testbed
