#include "nui/ui/handlers/DataProvider.h"

namespace nurel::ui::handlers {

DataProvider::~DataProvider() = default;

} // namespace nurel::ui::handlers
