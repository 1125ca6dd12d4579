#include "velnlsDisplayer.h"

velnlsDisplayer::~velnlsDisplayer() = default;
