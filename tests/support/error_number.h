#pragma once

#include "platform/dao.h"

namespace quillon {

// The number of the error `operation` throws, or 0 when it throws none.
template <typename Operation>
int ErrorNumberOf(Operation operation) {
    try {
        operation();
    } catch (const dao::DaoError& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace quillon
