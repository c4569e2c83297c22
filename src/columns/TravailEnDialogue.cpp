#include "columns/TravailEnDialogue.h"

#include "base/Evenements.h"
#include "kit/ManqueDeMemoire.h"

#include <QProgressBar>
#include <QScopedValueRollback>

namespace {

/// On show as long as it lives.
class BarreMontree
{
public:
    BarreMontree(QProgressBar* barre, int maximum) : m_barre(barre)
    {
        if (!m_barre)
            return;
        m_barre->setRange(0, maximum);
        m_barre->setValue(0);
        m_barre->show();
    }
    ~BarreMontree()
    {
        if (m_barre)
            m_barre->hide();
    }
    BarreMontree(const BarreMontree&) = delete;
    BarreMontree& operator=(const BarreMontree&) = delete;

private:
    QProgressBar* m_barre;
};

} // namespace

AvancementDansBarre::AvancementDansBarre(QProgressBar* barre, std::chrono::milliseconds entreDeuxImages)
    : m_barre(barre), m_entreDeuxImages(entreDeuxImages)
{
    m_depuis.start();
}

void AvancementDansBarre::Dire(int fait, int)
{
    if (m_barre)
        m_barre->setValue(fait);
    if (m_depuis.elapsed() < m_entreDeuxImages.count())
        return;
    LaisserPasserEvenements();
    m_depuis.restart();
}

bool TravailEnDialogue::Faire(QProgressBar* barre, int maximum, const std::function<void(Avancement&)>& travail)
{
    const QScopedValueRollback garde(m_enCours, true);
    const Retenue retenue;
    const BarreMontree montree(barre, maximum);
    AvancementDansBarre avancement(barre);
    return AvecMemoire(
        [&] {
            travail(avancement);
            return true;
        },
        false);
}
