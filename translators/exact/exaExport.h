#pragma once

// What libvelexact shows to the translators of exact formats. Everything else is compiled hidden.
#define VELEXACT_API __attribute__((visibility("default")))
