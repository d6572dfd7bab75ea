#include "platform/attributes.h"

#include <atomic>

namespace jx {
namespace {

std::atomic<bool> stored_attributes_used{true};

}  // namespace

void SetStoredAttributesUsed(bool used) { stored_attributes_used.store(used, std::memory_order_relaxed); }

bool StoredAttributesUsed() { return stored_attributes_used.load(std::memory_order_relaxed); }

}  // namespace jx
