#include "shell/failure_report.h"

#include "data/data_access.h"
#include "platform/dao.h"

#include <stdexcept>

namespace quillon {

void ReportFailure(const QString& module, const QString& procedure, const std::exception& error) {
    if (dynamic_cast<const std::out_of_range*>(&error)) {
        ReportError(
            module, procedure,
            dao::DaoError(kErrSubscriptOutOfRange, QStringLiteral("Subscript out of range")));
        return;
    }
    ReportError(module, procedure, error);
}

}  // namespace quillon
