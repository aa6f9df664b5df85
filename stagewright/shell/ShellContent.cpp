#include "ShellContent.h"

#include <QIcon>

#include <mutex>

static void registerShellContent()
{
    Q_INIT_RESOURCE(shellcontent);
}

namespace stagewright {

QString shellContentPath(const QString& relative)
{
    static std::once_flag once;
    std::call_once(once, registerShellContent);
    return QStringLiteral(":/stagewright/") + relative;
}

QPixmap applicationImage(int side)
{
    return QIcon(shellContentPath(QStringLiteral("app/appicon.svg"))).pixmap(side, side);
}

} // namespace stagewright
