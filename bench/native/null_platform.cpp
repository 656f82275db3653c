#include "bench/native/null_platform.h"

#include "data/abre_cn.h"
#include "data/abre_firehose_rs.h"

namespace kodra::bench {
namespace {

// Stops the watch for the time of one call.
class Pause {
 public:
  explicit Pause(Watch& watch) : watch_(watch) { watch_.Stop(); }
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;
  ~Pause() { watch_.Go(); }

 private:
  Watch& watch_;
};

// Starts the watch again at the end of a call after which a statement begins.
class Fresh {
 public:
  explicit Fresh(Watch& watch) : watch_(watch) {}
  Fresh(const Fresh&) = delete;
  Fresh& operator=(const Fresh&) = delete;
  ~Fresh() { watch_.Restart(); }

 private:
  Watch& watch_;
};

// Every sibling in one: it has all members that a report uses.
class Sibling final : public AutomationObject {
 public:
  explicit Sibling(NullPlatform& around) : around_(around) {}

  Value Get(std::wstring_view member) override {
    if (member == L"TipoBanco") {
      const Fresh fresh(around_.watch);
      return around_.code;
    }
    if (member == L"Nomes") {
      const Pause pause(around_.watch);
      return Itself();
    }
    const Fresh fresh(around_.watch);
    if (member == L"Count") return 2;
    return L"Série";
  }
  void Let(std::wstring_view, const Value&) override { around_.watch.Stop(); }
  void Set(std::wstring_view, const ObjectRef&) override { around_.watch.Stop(); }
  Value Call(std::wstring_view member, std::span<const Value>) override {
    const Pause pause(around_.watch);
    if (member == L"ToDate") return Date{45352};
    if (member == L"Localiza") return ObjectRef();
    if (member == L"ObtemDescricao") return L"Arquivista";
    if (member == L"NumCxSubordinadaSQL") return L"s.NUM_CAIXA || SUBSTR('0' || s.NUM_SEQ, -2)";
    return Itself();
  }

 private:
  // Nobody owns it, so a reference costs nothing.
  ObjectRef Itself() { return {ObjectRef(), this}; }

  NullPlatform& around_;
};

class NullField final : public platform::Field {
 public:
  explicit NullField(Watch& watch) : watch_(watch) {}
  Value Get() override {
    const Fresh fresh(watch_);
    return L"AB001";
  }
  void Let(const Value&) override { const Fresh fresh(watch_); }

 private:
  Watch& watch_;
};

// A recordset with one row.
class NullRecordset final : public platform::Recordset {
 public:
  explicit NullRecordset(NullPlatform& around) : around_(around) {}

  void SetCursorLocation(std::int32_t) override { const Pause pause(around_.watch); }
  void SetCursorType(std::int32_t) override { const Pause pause(around_.watch); }
  void SetCacheSize(std::int32_t) override { const Pause pause(around_.watch); }
  void Open(const platform::RecordsetSource& source, const platform::ActiveConnection&, std::int32_t, std::int32_t,
            std::int32_t) override {
    around_.watch.Stop();
    if (std::holds_alternative<std::wstring_view>(source)) around_.StatementArrives();
    open_ = true;
    around_.watch.Restart();
  }
  void Close() override { const Fresh fresh(around_.watch); }
  std::int32_t State() override { return open_ ? platform::ad::kStateOpen : platform::ad::kStateClosed; }
  bool Eof() override {
    const Fresh fresh(around_.watch);
    return atEnd_;
  }
  void MoveFirst() override { const Fresh fresh(around_.watch); }
  void MoveNext() override {
    const Fresh fresh(around_.watch);
    atEnd_ = true;
  }
  std::int64_t RecordCount() override { return -1; }
  std::vector<platform::Column> Columns() override { return {}; }
  void AppendField(const std::wstring&, std::int32_t, std::int32_t, std::int32_t) override {
    const Fresh fresh(around_.watch);
  }
  std::unique_ptr<platform::Field> FieldByName(const std::wstring&) override {
    const Fresh fresh(around_.watch);
    return std::make_unique<NullField>(around_.watch);
  }
  void AddNew() override { const Fresh fresh(around_.watch); }
  void Update() override { const Fresh fresh(around_.watch); }

 private:
  NullPlatform& around_;
  bool open_ = false;
  bool atEnd_ = false;
};

class NullCommand final : public platform::Command {
 public:
  explicit NullCommand(NullPlatform& around) : around_(around) {}

  void SetActiveConnection(platform::Connection*) override { const Pause pause(around_.watch); }
  bool HasActiveConnection() override { return true; }
  void SetCommandText(std::wstring_view) override {
    around_.watch.Stop();
    around_.StatementArrives();
    around_.watch.Restart();
  }
  void SetCommandType(std::int32_t) override {}
  void AppendParameter(const std::wstring&, std::int32_t, std::int32_t, std::int32_t, const Value&) override {}

 private:
  NullPlatform& around_;
};

}  // namespace

Value ClientParameters::Get(std::wstring_view member) {
  const Pause pause(watch_);
  return values_.Get(member);
}

NullPlatform::NullPlatform() : sibling_(std::make_unique<Sibling>(*this)) {}

std::unique_ptr<platform::Connection> NullPlatform::NewConnection() { return nullptr; }

std::unique_ptr<platform::Command> NullPlatform::NewCommand() {
  const Pause pause(watch);
  return std::make_unique<NullCommand>(*this);
}

std::unique_ptr<platform::Recordset> NullPlatform::NewRecordset() {
  const Pause pause(watch);
  return std::make_unique<NullRecordset>(*this);
}

ObjectRef NullPlatform::CreateObject(const std::wstring&) {
  watch.Stop();
  return {ObjectRef(), sibling_.get()};
}

void NullPlatform::SetEnvironment(const std::wstring&, const std::wstring&) {}

std::optional<std::uint64_t> NullPlatform::FileLength(const std::wstring&) { return 1; }
bool NullPlatform::IsFile(const std::wstring&) { return true; }

}  // namespace kodra::bench

// Replaces the component's own openers, which the linker then leaves out: a statement that arrives here is complete.
namespace kodra::data {

std::unique_ptr<platform::Recordset> AbreFirehoseRs(const platform::RecordsetSource& source, const std::wstring&,
                                                    std::int32_t, std::unique_ptr<platform::Connection>&,
                                                    platform::Surroundings& surroundings) {
  auto& around = static_cast<bench::NullPlatform&>(surroundings);
  auto rows = std::make_unique<bench::NullRecordset>(around);
  rows->Open(source, std::monostate{}, 0, 0, 0);
  return rows;
}

std::unique_ptr<platform::Connection> AbreCn(const std::wstring&, std::int32_t, std::int32_t, platform::Surroundings&) {
  return nullptr;
}

}  // namespace kodra::data
