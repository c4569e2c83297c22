#include "architecture/TextesDesMessages.h"

#include <QRegularExpression>

namespace {

/// A literal without what stands around it, and the same in one or several pieces.
const QString s_litteral = QStringLiteral(R"re("(?:[^"\\]|\\.)*+")re");
const QString s_litteraux = QStringLiteral("%1(?:\\s*%1)*+").arg(s_litteral);

/// The source without comments and raw strings, and with its literals in their plainest form: "..." and nothing around
/// it.
QString Epuree(const QString& source)
{
    static const QRegularExpression morceau(
        QStringLiteral(
            R"re(//[^\n]*+|/\*(?s:.*?)\*/|R"(\w*)\((?s:.*?)\)\1"|('(?:[^'\\]|\\.)')|(?:\bu8?)?(%1)(?:_s\b)?)re")
            .arg(s_litteral));
    QString epuree;
    qsizetype lu = 0;
    QRegularExpressionMatchIterator morceaux = morceau.globalMatch(source);
    while (morceaux.hasNext()) {
        const QRegularExpressionMatch trouve = morceaux.next();
        epuree += source.mid(lu, trouve.capturedStart() - lu) + trouve.captured(2) + trouve.captured(3);
        lu = trouve.capturedEnd();
    }
    static const QRegularExpression macro(QStringLiteral(R"re(QStringLiteral\(\s*(%1)\s*\))re").arg(s_litteraux));
    epuree += source.mid(lu);
    return epuree.replace(macro, QStringLiteral("\\1"));
}

/// What is between the quotes.
QString Contenu(QString litteraux)
{
    static const QRegularExpression suite(QStringLiteral(R"re((?<!\\)"\s*")re"));
    return litteraux.sliced(1).chopped(1).remove(suite);
}

} // namespace

void LireMessages(const QString& source, MessagesDesSources& messages)
{
    static const QRegularExpression message(QStringLiteral(R"re("(msg\w+)"\s*,\s*(?:(%1)|(\w)))re").arg(s_litteraux));
    QRegularExpressionMatchIterator trouves = message.globalMatch(Epuree(source));
    while (trouves.hasNext()) {
        const QRegularExpressionMatch trouve = trouves.next();
        const QString cle = trouve.captured(1);
        if (!trouve.captured(3).isEmpty()) {
            messages.clesSeules.append(cle);
            continue;
        }
        QStringList& textes = messages.textes[cle];
        const QString texte = Contenu(trouve.captured(2));
        if (!textes.contains(texte))
            textes.append(texte);
    }
}
