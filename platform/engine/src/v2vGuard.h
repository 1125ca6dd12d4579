#pragma once

#include <exception>
#include <new>
#include <utility>

#include "utString.h"

// Runs foreign code and catches every exception. Returns false, and the exception's text, if it throws.
template <typename Work>
bool v2v_guarded(Work&& work, utString& failure) {
  try {
    std::forward<Work>(work)();
    return true;
  } catch (const std::bad_alloc&) {
    failure = "there is not enough memory";
  } catch (const std::exception& thrown) {
    failure = utString("it stopped on an error of its own: ") + thrown.what();
  } catch (...) {
    failure = "it stopped on an error of its own";
  }
  return false;
}
