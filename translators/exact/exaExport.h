#pragma once

// Exports a symbol of libvelexact to the translators of exact formats. All other symbols are hidden.
#define VELEXACT_API __attribute__((visibility("default")))
