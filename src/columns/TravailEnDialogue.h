// Long work on a document in the dialog that asked for it: its bar moves, and it cannot be left or used meanwhile.
#pragma once

#include "base/Avancement.h"
#include "platform/Retenue.h"

#include <QElapsedTimer>

#include <chrono>
#include <functional>

class QProgressBar;

/// Moves a bar, and lets windows be drawn.
class AvancementDansBarre : public Avancement
{
public:
    /// `barre` may be null: nothing is shown then.
    explicit AvancementDansBarre(QProgressBar* barre,
                                 std::chrono::milliseconds entreDeuxImages = std::chrono::milliseconds(40));

protected:
    void Dire(int fait, int total) override;

private:
    QProgressBar* m_barre;
    std::chrono::milliseconds m_entreDeuxImages;
    QElapsedTimer m_depuis;
};

class TravailEnDialogue
{
public:
    bool EnCours() const { return m_enCours; }

    /// Runs `travail` with `barre` on show (null: without one), from 0 to `maximum`; what the user and other programs
    /// want waits until it is done. False when memory ran out, which is told: what `travail` had done is not undone.
    bool Faire(QProgressBar* barre, int maximum, const std::function<void(Avancement&)>& travail);

private:
    bool m_enCours = false;
};
