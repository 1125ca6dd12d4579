#include "vlnValidator.h"

vlnValidator::~vlnValidator() = default;
