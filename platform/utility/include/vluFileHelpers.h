#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileError.h"

// Creates one level of directory, mode 0700. Returns 1 if created, 7 if it already exists, 3 otherwise.
VELPLATFORM_API vluFileError vlu_make_directory(const utString& path);

// 7 if it is a directory, 5 if it is another entry, 2 if it does not exist.
VELPLATFORM_API vluFileError vlu_check_directory_exists(const utString& path);

// 6 if it is a regular file or a character device, 5 if it is another entry, 2 if it does not exist.
VELPLATFORM_API vluFileError vlu_check_file_exists(const utString& path);

// Copies content and permissions and replaces an existing file; the target is complete or unchanged. Copying a file
// onto itself does nothing. Returns 8 for success, 4 for failure.
VELPLATFORM_API vluFileError vlu_copy_file(const utString& from, const utString& to);

// Returns 8 if the file was removed, 2 if it did not exist, 9 if it could not be removed. Never removes a directory.
VELPLATFORM_API vluFileError vlu_remove_file(const utString& path);

// An unpredictable name in the temporary directory (TMPDIR, else /tmp). The file is not created: the caller creates it
// exclusively. If `name` is not empty, it is the beginning of the file name.
VELPLATFORM_API utString vlu_make_temp_file_name(const utString& name);

// Sixteen unpredictable letters and digits.
VELPLATFORM_API utString vlu_random_text();
