#pragma once

#include <cstdint>

// The library's constants keep the names and numbers that hosts know.
namespace kvx::ado {

enum DataTypeEnum : std::int32_t {
    adEmpty = 0,
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBoolean = 11,
    adDecimal = 14,
    adUnsignedTinyInt = 17,
    adBigInt = 20,
    adBinary = 128,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
    adLongVarWChar = 203,
    adVarBinary = 204,
    adLongVarBinary = 205,
};

enum CursorTypeEnum : std::int32_t {
    adOpenUnspecified = -1,
    adOpenForwardOnly = 0,
    adOpenKeyset = 1,
    adOpenDynamic = 2,
    adOpenStatic = 3,
};

enum LockTypeEnum : std::int32_t {
    adLockUnspecified = -1,
    adLockReadOnly = 1,
    adLockPessimistic = 2,
    adLockOptimistic = 3,
    adLockBatchOptimistic = 4,
};

enum CursorLocationEnum : std::int32_t { adUseServer = 2, adUseClient = 3 };
enum CommandTypeEnum : std::int32_t {
    adCmdUnspecified = -1,
    adCmdText = 1,
    adCmdTable = 2,
    adCmdStoredProc = 4,
    adCmdUnknown = 8,
    adAsyncFetch = 32, ///< rows behind the first ones come later, by Recordset::FetchMore or when they are asked for
    adExecuteNoRecords = 128,
};
enum ObjectStateEnum : std::int32_t { adStateClosed = 0, adStateOpen = 1 };
enum EditModeEnum : std::int32_t { adEditNone = 0, adEditInProgress = 1, adEditAdd = 2 };
enum SearchDirectionEnum : std::int32_t { adSearchBackward = -1, adSearchForward = 1 };
enum BookmarkEnum : std::int32_t { adBookmarkCurrent = 0, adBookmarkFirst = 1, adBookmarkLast = 2 };

// ADO's own errors, in the short form.
constexpr std::int32_t kErrWrongArgument = 3001;
constexpr std::int32_t kErrNoCurrentRecord = 3021;
constexpr std::int32_t kErrNotAllowedHere = 3219;
constexpr std::int32_t kErrNotSupported = 3251;
constexpr std::int32_t kErrItemNotFound = 3265;
constexpr std::int32_t kErrWrongValueType = 3421;
constexpr std::int32_t kErrObjectClosed = 3704;
constexpr std::int32_t kErrObjectOpen = 3705;
constexpr std::int32_t kErrProviderNotFound = 3706;
constexpr std::int32_t kErrConnectionInvalid = 3709;

// The provider's errors.
constexpr std::int32_t kErrStatement = -2147217900;    // 80040E14
constexpr std::int32_t kErrConstraint = -2147217873;   // 80040E2F
constexpr std::int32_t kErrNoSuchTable = -2147217865;  // 80040E37
constexpr std::int32_t kErrConversion = -2147217913;   // 80040E07
constexpr std::int32_t kErrOutOfRange = -2147217833;   // 80040E57
constexpr std::int32_t kErrNoPermission = -2147217911; // 80040E09
constexpr std::int32_t kErrTimeout = -2147217871;      // 80040E31
constexpr std::int32_t kErrRowChanged = -2147217864;   // 80040E38
constexpr std::int32_t kErrMultiStep = -2147217887;    // 80040E21
constexpr std::int32_t kErrLogin = -2147217843;        // 80040E4D
constexpr std::int32_t kErrUnspecified = -2147467259;  // 80004005

} // namespace kvx::ado
