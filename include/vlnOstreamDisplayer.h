#pragma once

#include "velnlsDisplayer.h"
#include "vlnExport.h"
#include "vlnOstream.h"

// Displays text through an output stream, which is not owned.
class VLN_API vlnOstreamDisplayer : public velnlsDisplayer {
 public:
  explicit vlnOstreamDisplayer(vlnOstream* stream) : stream_(stream) {}
  void display(const char* text) override;
  ~vlnOstreamDisplayer() override;

 private:
  vlnOstream* stream_;
};
