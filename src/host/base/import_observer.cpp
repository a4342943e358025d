#include "host/base/import_observer.h"

VornImportObserver::~VornImportObserver() = default;
