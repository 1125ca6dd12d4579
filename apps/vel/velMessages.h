#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// The numbers of the program's messages. The texts are in the string table "vel_messages" of the process, which a
// translation or a host can replace. "%1" to "%9" are placeholders for values; the comment at a number lists them in
// order. A number is never reused for another text.
enum velMessage : unsigned int {
  velMSG_NO_MEMORY = 1,
  velMSG_UNEXPECTED,           // reason
  velMSG_RESULTS_NOT_WRITTEN,  // reason
  velMSG_CANNOT_BE_WRITTEN,    // a reason
  velMSG_LOG_NOT_OPENED,       // file
  velMSG_LOG_IS_NAMED,         // file
  velMSG_LOG_NOT_WRITTEN,      // file
  velMSG_NO_REASON,            // subject
  velMSG_NOTHING_WRITTEN,

  velMSG_TRY_HELP = 20,  // error, command
  velMSG_NO_COMMAND,
  velMSG_UNKNOWN_COMMAND,  // argument
  velMSG_UNKNOWN_OPTION,   // argument
  velMSG_NOT_KEY_VALUE,    // argument
  velMSG_STANDARD_STREAM,
  velMSG_OUTPUT_WITHOUT_NAME,
  velMSG_UNKNOWN_UNIT,              // argument, units
  velMSG_NO_COMMAND_BUT_TRANSLATE,  // argument
  velMSG_WORD_IS_MISSING,           // its placeholder in the help
  velMSG_VALUE_IS_MISSING,          // option, placeholder of its value in the help
  velMSG_TAKES_NO_VALUE,            // option
  velMSG_GIVEN_TWICE,               // option
  velMSG_UNKNOWN_OPTION_OR_FILE,    // argument
  velMSG_WORD_TOO_MANY,             // argument
  velMSG_NOT_A_SIZE,                // argument
  velMSG_PICTURE_IS_PAGE,           // file
  velMSG_NO_NAME_OF_PAGE,           // file
  velMSG_NO_NAME_OF_PICTURE,        // file
  velMSG_MEANT,                     // error, suggested name

  velMSG_PROGRAM_NOT_FOUND = 40,  // reason
  velMSG_PLACE_TOO_DEEP,          // directory
  velMSG_NO_APP_DATA,             // directories
  velMSG_QRM_HOME_UNUSABLE,       // directory, directory used instead

  velMSG_NO_LIBRARIES = 60,    // directory
  velMSG_NO_USABLE_LIBRARY,    // directory, counted libraries
  velMSG_CACHE_DAMAGED,        // file
  velMSG_TRANSLATOR_UNUSABLE,  // file, library, reason
  velMSG_LIST_NO_LIBRARY,      // directory
  velMSG_LIST_NO_DIRECTORY,    // directory
  velMSG_WHY_NO_ENTRY,
  velMSG_WHY_NO_OBJECT,
  velMSG_WHY_NO_CONVERSION,
  velMSG_WHY_NO_DESCRIPTION,
  velMSG_CACHE_DAMAGED_MENDED,  // file

  velMSG_INPUT_MISSING = 80,  // file, reason
  velMSG_INPUT_IS_DIRECTORY,  // file
  velMSG_INPUT_IS_SPECIAL,    // file
  velMSG_INPUT_UNREADABLE,    // file, reason
  velMSG_INPUT_EMPTY,         // file
  velMSG_EMPTY_NAME,
  velMSG_CONTENT_UNKNOWN,      // file, formats
  velMSG_NO_READER,            // file, file type, formats
  velMSG_READER_NOT_BUILT,     // file, file type, packages
  velMSG_NO_READER_OF_FORMAT,  // format, formats
  velMSG_FROM_IS_MISTAKEN,     // file, file type, format
  velMSG_READ_BY_EXTENSION,    // file, format
  velMSG_INPUT_IS_UTF16,       // file

  velMSG_NO_FORMAT_FOR_NAME = 100,  // file, formats
  velMSG_WRITER_NOT_BUILT,          // file or format, packages
  velMSG_NO_WRITER,                 // format, formats
  velMSG_OUTPUT_IS_INPUT,           // file
  velMSG_OUTPUT_IS_DIRECTORY,       // file
  velMSG_OUTPUT_IN_CIRCLE,          // file
  velMSG_OUTPUT_READ_ONLY,          // file
  velMSG_OUTPUT_NO_DIRECTORY,       // file
  velMSG_OUTPUT_BELOW_FILE,         // file
  velMSG_OUTPUT_DIRECTORY_CLOSED,   // file
  velMSG_CANCELLED,                 // file
  velMSG_CANCELLED_NOT_WRITTEN,     // file
  velMSG_TRANSLATED,                // file, counts, format, inputs
  velMSG_OUTPUT_WITHOUT_EXTENSION,  // file, formats
  velMSG_NO_TEMPORARY_DIRECTORY,    // directory, reason
  velMSG_AND_OTHERS,                // inputs, number

  velMSG_UNKNOWN_KEY = 120,  // side ("--in" or "--out"), key, formats, known keys
  velMSG_KNOWN_KEYS,         // keys
  velMSG_NO_KEYS,
  velMSG_BAD_VALUE,  // side, key, value, accepted values
  velMSG_TAKES_WHOLE,
  velMSG_TAKES_REAL,
  velMSG_TAKES_OTHER_TEXT,
  velMSG_TAKES_ONE_OF,      // values
  velMSG_LINE_PASSED_OVER,  // file, line and reason as one text
  velMSG_UNKNOWN_FORMAT,    // format, formats
  velMSG_NO_OPTIONS,        // format
  velMSG_IN_RESOURCE_FILE,  // file, key, value
  velMSG_TAKES_ABOVE_ZERO,
  velMSG_TAKES_FROM_ZERO,
  velMSG_TAKES_DIGITS,
  velMSG_TAKES_DEGREES,
  velMSG_FOR_READING_ONLY,  // side, key
  velMSG_FOR_WRITING_ONLY,  // side, key
  velMSG_TAKES_PIXELS,
  velMSG_TAKES_BACKGROUND,

  velMSG_RANGE_ABOVE_ZERO = 165,
  velMSG_RANGE_FROM_ZERO,
  velMSG_RANGE_DIGITS,
  velMSG_RANGE_DEGREES,
  velMSG_RANGE_PIXELS,

  velMSG_CACHE_NO_PLACE = 140,
  velMSG_CACHE_KEPT,          // file, reason
  velMSG_CACHE_NO_DIRECTORY,  // directory
  velMSG_CACHE_TEXT_UNFIT,    // library
  velMSG_CACHE_LEFT_OUT,      // library, reason
  velMSG_CACHE_WRITTEN,       // file, counted records
  velMSG_CACHE_NONE,
  velMSG_CACHE_OWN,        // file, counted records
  velMSG_CACHE_INSTALLED,  // file, counted records
  velMSG_CACHE_RECORD_UNUSABLE,
  velMSG_CACHE_TO_MEND,  // file
  velMSG_CACHE_NO_APP_DATA,
  velMSG_CACHE_REMOVED,         // file
  velMSG_CACHE_NOT_THERE,       // file
  velMSG_CACHE_NOT_REMOVED,     // file, reason
  velMSG_CACHE_OTHER_IN_FORCE,  // file

  velMSG_BAD_VALUE_IN_FILE = 160,  // file, line, value, key, accepted values

  velMSG_FILE_WITHOUT_UNIT = 180,  // file
  velMSG_UNIT_CONVERTED,           // unit, the file's unit
  velMSG_SERVICE_MISSING,          // library, directories, consequence
  velMSG_SERVICE_UNUSABLE,         // library, consequence
  velMSG_UNIT_OF_FILE_SHOWN,       // unit
  velMSG_NO_UNIT,

  // Nouns for counts: each singular is followed by its plural.
  velMSG_PART = 200,
  velMSG_PARTS,
  velMSG_FACE,
  velMSG_FACES,
  velMSG_VERTEX,
  velMSG_VERTICES,
  velMSG_RECORD,
  velMSG_RECORDS,
  velMSG_LIBRARY,
  velMSG_LIBRARIES,
  velMSG_EXACT_FACE,
  velMSG_EXACT_FACES,
};

// The text with the values in place of the placeholders. A placeholder without a value is kept. Placeholders inside a
// value are not replaced.
std::string vel_text(velMessage message, std::initializer_list<std::string_view> values = {});

// "1 part", "3 parts". `noun` is the number of the singular; the next number is the plural.
std::string vel_counted(std::size_t count, velMessage noun);
