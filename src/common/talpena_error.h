// Run-time failures as the user is shown them.
#pragma once
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace talpena {

/// Numbers of the failures that the program raises or tests for.
namespace ErrorNumber {
inline constexpr int InvalidCall = 5;  ///< an argument without a result, a negative root
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int InternalError = 51;  ///< what no code of the program's own has raised
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceFault = 57;
inline constexpr int FileExists = 58;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEnd = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int InvalidPattern = 93;  ///< a LIKE with a bracket that is not closed
inline constexpr int InvalidNull = 94;
inline constexpr int ResourceNotFound = 326;  ///< a text that the string table lacks
inline constexpr int NotInCodePage = 481;     ///< a character that code page 1252 lacks
inline constexpr int Cancelled = 32755;       ///< the user left a dialog by Cancel

// The table engine's own.
inline constexpr int EngineFault = 3000;  ///< a failure of the library without a plainer name
inline constexpr int InvalidArgument = 3001;
inline constexpr int TableExists = 3010;
inline constexpr int UpdateWithoutEdit = 3020;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int DuplicateKey = 3022;
inline constexpr int DatabaseNotFound = 3024;
inline constexpr int ReadOnly = 3027;
inline constexpr int SystemDatabase = 3028;
inline constexpr int NoTransaction = 3034;
inline constexpr int FileInUse = 3045;
inline constexpr int RecordTooLarge = 3047;  ///< a row of a maker's file
inline constexpr int TooFewParameters = 3061;
inline constexpr int SelectNotExecutable = 3065;
inline constexpr int SyntaxError = 3075;
inline constexpr int TableNotFound = 3078;
inline constexpr int AmbiguousField = 3079;
inline constexpr int UndefinedFunction = 3085;
inline constexpr int AggregateNotAllowed = 3096;
inline constexpr int CircularReference = 3102;
inline constexpr int InvalidName = 3125;  ///< of a table or column in a maker's file
inline constexpr int InvalidStatement = 3129;
inline constexpr int TextAfterEnd = 3142;
inline constexpr int InvalidBookmark = 3159;
inline constexpr int FieldTooSmall = 3163;
inline constexpr int FieldNotUpdatable = 3164;
inline constexpr int RecordDeleted = 3167;
inline constexpr int TooManyFields = 3190;
inline constexpr int NotSupported = 3251;  ///< a format that is only read, a query not known
inline constexpr int ItemNotFound = 3265;
inline constexpr int NullNotAllowed = 3314;
inline constexpr int ZeroLength = 3315;
inline constexpr int UnrecognizedFormat = 3343;
inline constexpr int QueryTooComplex = 3360;
inline constexpr int DataConversion = 3421;
inline constexpr int SpreadsheetFull = 3437;  ///< more rows than a sheet of a workbook has
}  // namespace ErrorNumber

/// What the words that the user is told of a failure are made of.
struct ErrorWords {
  int text = 0;  ///< base id of words of its own; 0 for those of the number
  /// A path, a column, a number: what stands for "%1" and "%2"; below the words where these have no
  /// place for it.
  std::vector<std::string> about = {};
  int hint = 0;           ///< base id of a text below all this; 0 for none
  std::int64_t line = 0;  ///< of the file that is being read; 0 when it does not matter
};

/// A run-time failure: its number, which the user is shown, and what happened, for those who know
/// the program. DescriptionErreur (common/error_words.h) says it to the user. Texts are UTF-8.
class TalpenaError final : public std::runtime_error {
 public:
  TalpenaError(int number, const std::string& description, ErrorWords words = {})
      : std::runtime_error(description),
        number_(number),
        words_(std::make_shared<const ErrorWords>(std::move(words))) {}
  int number() const noexcept { return number_; }
  std::string description() const { return what(); }
  const ErrorWords& words() const noexcept { return *words_; }

  /// The same on a line of a file.
  TalpenaError SurLigne(std::int64_t line) const {
    ErrorWords words = *words_;
    words.line = line;
    return {number_, "Line " + std::to_string(line) + ": " + what(), std::move(words)};
  }

 private:
  int number_;
  std::shared_ptr<const ErrorWords> words_;  // a copy of an exception must not throw
};

}  // namespace talpena
