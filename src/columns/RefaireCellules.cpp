#include "columns/RefaireCellules.h"

#include "base/Avancement.h"
#include "catalogue/texte/QrtClass.h"
#include "platform/PageDeCode.h"

using stockage::Cellule;
using stockage::Codage;

namespace {

bool Essayer(QrtClass& doc, Codage encodage, const RefonteDeTable::Travail& travail, Avancement& avancement)
{
    RefonteDeTable refonte(*doc.MyLV, encodage, travail);
    while (refonte.Avancer(Avancement::Pas))
        avancement.Avancer(refonte.Fait(), doc.ItemsCount());
    return refonte.Poser();
}

} // namespace

void RefaireCellules(QrtClass& doc, Codage encodage, const std::function<RefonteDeTable::Travail()>& debuter,
                     Avancement& avancement)
{
    if (Essayer(doc, encodage, debuter(), avancement))
        return;
    // Without events nothing comes in between.
    SansAvancement seul;
    Essayer(doc, encodage, debuter(), seul);
}

Cellule CelluleDe(const Cellules& cellules, int i)
{
    const auto place = static_cast<size_t>(i);
    return place < cellules.size() && cellules[place].existe ? cellules[place] : Cellule{"", 0, Codage::Utf8, true};
}

void EcrireCellule(Cellules& cellules, int i, const Cellule& cellule)
{
    const auto place = static_cast<size_t>(i);
    if (cellules.size() <= place)
        cellules.resize(place + 1);
    cellules[place] = cellule;
}

void RetirerCellule(Cellules& cellules, int i)
{
    if (static_cast<size_t>(i) < cellules.size())
        cellules.erase(cellules.begin() + i);
}

void InsererCellule(Cellules& cellules, int i, const Cellule& cellule)
{
    const auto place = static_cast<size_t>(i);
    if (cellules.size() < place)
        cellules.resize(place);
    cellules.insert(cellules.begin() + i, cellule);
}

TexteTape::TexteTape(const QString& texte)
    : m_cp1252(PageDeCode::VersOctets(texte)), m_utf8(texte.toUtf8()),
      m_representable(PageDeCode::EstRepresentable(texte))
{
}

Codage TexteTape::EncodagePour(const QrtClass& doc) const
{
    return m_representable ? doc.MyLV->CodageSource() : Codage::Utf8;
}

const QByteArray* TexteTape::Octets(Codage encodage) const
{
    if (encodage == Codage::Utf8)
        return &m_utf8;
    return m_representable ? &m_cp1252 : nullptr;
}
