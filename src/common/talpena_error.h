// Run-time failures as the user is shown them.
#pragma once
#include <stdexcept>
#include <string>

namespace talpena {

/// Numbers of the failures that the program raises or tests for.
namespace ErrorNumber {
inline constexpr int InvalidCall = 5;  ///< an argument without a result, a negative root
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyOpen = 55;
inline constexpr int DeviceFault = 57;
inline constexpr int FileExists = 58;
inline constexpr int DiskFull = 61;
inline constexpr int InputPastEnd = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int InvalidNull = 94;
inline constexpr int ResourceNotFound = 326;  ///< a text that the string table lacks
inline constexpr int NotInCodePage = 481;     ///< a character that code page 1252 lacks
inline constexpr int Cancelled = 32755;       ///< the user left a dialog by Cancel

// The table engine's own.
inline constexpr int InvalidArgument = 3001;
inline constexpr int TableExists = 3010;
inline constexpr int UpdateWithoutEdit = 3020;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int DuplicateKey = 3022;
inline constexpr int DatabaseNotFound = 3024;
inline constexpr int ReadOnly = 3027;
inline constexpr int SystemDatabase = 3028;
inline constexpr int NoTransaction = 3034;
inline constexpr int TooFewParameters = 3061;
inline constexpr int SyntaxError = 3075;
inline constexpr int TableNotFound = 3078;
inline constexpr int InvalidBookmark = 3159;
inline constexpr int FieldTooSmall = 3163;
inline constexpr int NotSupported = 3251;  ///< a format that is only read, a query not known
inline constexpr int ItemNotFound = 3265;
inline constexpr int NullNotAllowed = 3314;
inline constexpr int ZeroLength = 3315;
inline constexpr int UnrecognizedFormat = 3343;
inline constexpr int DataConversion = 3421;
}  // namespace ErrorNumber

/// A run-time failure in the two parts that the user is shown. The description is UTF-8.
class TalpenaError final : public std::runtime_error {
 public:
  TalpenaError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  int number() const noexcept { return number_; }
  std::string description() const { return what(); }

 private:
  int number_;
};

}  // namespace talpena
