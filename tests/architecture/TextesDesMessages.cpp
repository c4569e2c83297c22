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

/// Words, as against names that programs give to things.
bool EstPhrase(const QString& texte)
{
    static const QRegularExpression mots(QStringLiteral(R"re(\p{L}{2,}\W* \W*\p{L}{2,}|(?=\p{L})[^\x00-\x7f])re"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    return mots.match(texte).hasMatch();
}

/// Whether what stands before a literal is the way of a text to the screen.
bool VaSeMontrer(const QString& avant)
{
    static const QRegularExpression chemin(QStringLiteral(
        R"re((?:\bset(?:Text|ToolTip|WindowTitle|Title|TabText|TabToolTip|StatusTip|WhatsThis|PlaceholderText|Accessible\w+|)re"
        R"re(HeaderLabels?|ItemText|SpecialValueText)|\badd(?:Item|Tab|Action|Menu)|\bAfficherMsg|\bMessage|)re"
        R"re(\bSaisirTexte|\bDemanderMotDePasse|\bChoisirDossier|ColumnHeaders\.Add)\([^;"]*$|)re"
        R"re(\btitre = $|\bMsg(?:Ok|OkAnnuler|OuiNon|OuiNonAnnuler),\s*$)re"));
    return chemin.match(avant).hasMatch();
}

} // namespace

void LireMessages(const QString& source, MessagesDesSources& messages)
{
    static const QRegularExpression message(
        QStringLiteral(R"re("(msg\w+|plug[A-Z]\w*)"\s*,\s*(?:(%1)|(\w)))re").arg(s_litteraux));
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

QStringList TextesSansCle(const QString& source)
{
    static const QRegularExpression litteral(QStringLiteral(R"re('(?:[^'\\]|\\.)'|(%1))re").arg(s_litteraux));
    static const QRegularExpression cle(QStringLiteral(R"re("(?:msg|plug[A-Z])\w+"\s*,\s*$)re"));
    static const QRegularExpression nomDeCle(QStringLiteral(R"re(^(?:msg|plug[A-Z])\w+$)re"));
    static const QRegularExpression lettres(QStringLiteral(R"re(\p{L}{2,})re"));
    static const QRegularExpression echappement(QStringLiteral(R"re(\\[rnt])re"));
    constexpr qsizetype vueArriere = 200;
    const QString epuree = Epuree(source);
    QStringList textes;
    for (const auto& trouve : litteral.globalMatch(epuree)) {
        if (trouve.captured(1).isEmpty())
            continue;
        const QString texte = Contenu(trouve.captured(1)).replace(echappement, QStringLiteral(" "));
        const qsizetype debut = trouve.capturedStart();
        const QString avant = epuree.sliced(qMax(qsizetype(0), debut - vueArriere), qMin(debut, vueArriere));
        if (avant.contains(cle) || texte.contains(nomDeCle) || !texte.contains(lettres))
            continue;
        if (EstPhrase(texte) || VaSeMontrer(avant))
            textes.append(texte);
    }
    return textes;
}
