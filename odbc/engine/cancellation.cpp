#include "odbc/engine/cancellation.h"

#include "odbc/engine/errors.h"
#include "odbc/engine/odbc_api.h"

namespace kodra::odbc {
namespace {

thread_local Cancellation* current = nullptr;

}  // namespace

Cancellation::Cancellation() { current = this; }

Cancellation::~Cancellation() { current = nullptr; }

void Cancellation::Cancel() {
  const std::lock_guard lock(mutex_);
  cancelled_ = true;
  // The lock keeps the statement from ending, and its handle from being freed, in the meantime.
  if (statement_ != nullptr) SQLCancel(statement_);
}

Running::Running(void* statement) : cancellation_(current) {
  if (cancellation_ == nullptr) return;
  const std::lock_guard lock(cancellation_->mutex_);
  if (cancellation_->cancelled_) Raise(ControlError::kOperationCancelled, kProviderSource);
  cancellation_->statement_ = statement;
}

Running::~Running() {
  if (cancellation_ == nullptr) return;
  const std::lock_guard lock(cancellation_->mutex_);
  cancellation_->statement_ = nullptr;
}

}  // namespace kodra::odbc
