#include "base/Evenements.h"

#include <QCoreApplication>
#include <QEventLoop>

void LaisserPasserEvenements()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}
