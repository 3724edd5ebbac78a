#pragma once

#include <cstdint>

namespace kv {

// ADO's own constants, of which the component passes few; their numbers are the ones that ADO documents.

enum class CursorType : std::int32_t { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };

enum class LockType : std::int32_t {
    adLockReadOnly = 1,
    adLockPessimistic = 2,
    adLockOptimistic = 3,
    adLockBatchOptimistic = 4
};

/// Command type and options of Open and Execute, which share their numbers.
enum class CommandType : std::int32_t { adOptionUnspecified = -1, adCmdText = 1, adCmdTable = 2, adCmdStoredProc = 4 };

enum class DataType : std::int32_t {
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBoolean = 11,
    adTinyInt = 16,
    adVarChar = 200
};

enum class ParameterDirection : std::int32_t {
    adParamInput = 1,
    adParamOutput = 2,
    adParamInputOutput = 3,
    adParamReturnValue = 4
};

enum class ObjectState : std::int32_t { adStateClosed = 0, adStateOpen = 1 };

}  // namespace kv
