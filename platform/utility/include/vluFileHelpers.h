#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileError.h"

// Makes one level of directory, mode 0700: 1 made, 7 it is there already, 3 otherwise.
VELPLATFORM_API vluFileError vlu_make_directory(const utString& path);

// 7 when it is a directory, 5 when something else is there, 2 when nothing is.
VELPLATFORM_API vluFileError vlu_check_directory_exists(const utString& path);

// 6 when it is a regular file or a character device, 5 when something else is there, 2 when nothing is.
VELPLATFORM_API vluFileError vlu_check_file_exists(const utString& path);

// Copies content and permissions, over an existing file too; the target is whole or as it was. Copying a file onto
// itself does nothing. 8 or 4.
VELPLATFORM_API vluFileError vlu_copy_file(const utString& from, const utString& to);

// 8 when it is gone, 2 when it was not there, 9 when it could not be removed. Never removes a directory.
VELPLATFORM_API vluFileError vlu_remove_file(const utString& path);

// A name that nobody can foresee, in the temporary directory (TMPDIR, else /tmp). Nothing is made: whoever writes
// creates it exclusively. `name`, if any, stands at its front.
VELPLATFORM_API utString vlu_make_temp_file_name(const utString& name);

// Sixteen unpredictable letters and digits.
VELPLATFORM_API utString vlu_random_text();
