#include "platform/dao.h"

namespace quillon::dao {

DaoError::DaoError(int number, QString description)
    : number_(number),
      description_(std::move(description)),
      what_(QStringLiteral("Error %1: %2").arg(number_).arg(description_).toStdString()) {}

}  // namespace quillon::dao
