#include "kit/TexteDInfobulle.h"

#include <QTextDocument>

QString TexteDInfobulle(const QString& texte)
{
    return Qt::mightBeRichText(texte) ? Qt::convertFromPlainText(texte, Qt::WhiteSpaceNormal) : texte;
}
