#include "catalogue/texte/ValeursVues.h"

#include <QtGlobal>

namespace {

constexpr qsizetype Trouvee = -1;

} // namespace

bool ValeursVues::Ajouter(const QString& valeur)
{
    if (Contient(valeur))
        return false;
    for (const QString& partie : valeur.split(u'|'))
        m_parties.insert(partie);
    m_texte += valeur + u'|';
    return true;
}

bool ValeursVues::Contient(const QString& valeur)
{
    return valeur.contains(u'|') ? ContientParties(valeur) : m_parties.contains(valeur);
}

/// Only pasted values hold bars. Each of them looks through the text once, however many entries have it.
bool ValeursVues::ContientParties(const QString& valeur)
{
    qsizetype& cherchee = m_cherchees[valeur];
    if (cherchee == Trouvee)
        return true;
    const QString avecBarres = u'|' + valeur + u'|';
    const bool trouvee = m_texte.indexOf(avecBarres, cherchee) >= 0;
    cherchee = trouvee ? Trouvee : qMax<qsizetype>(m_texte.size() - avecBarres.size() + 1, 0);
    return trouvee;
}
