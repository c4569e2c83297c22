// The window of an export that takes longer than a moment.
#pragma once

#include "Fin.h"

#include <QElapsedTimer>
#include <QPointer>

#include <chrono>

class QProgressDialog;

/// Opens over the window in use and blocks all others, with "Annuler" to give up; lets events run from then on. Before
/// that no event runs. The window goes with this object.
class ProgressionEnFenetre : public Progression
{
public:
    /// What counts as a moment; tests have none.
    static inline std::chrono::milliseconds DelaiUsuel{400};
    explicit ProgressionEnFenetre(std::chrono::milliseconds delai = DelaiUsuel);
    ~ProgressionEnFenetre() override;
    ProgressionEnFenetre(const ProgressionEnFenetre&) = delete;
    ProgressionEnFenetre& operator=(const ProgressionEnFenetre&) = delete;

    bool Avancer(int64_t fait, int64_t total) override;

private:
    void Ouvrir();

    std::chrono::milliseconds m_delai;
    QElapsedTimer m_depuis;
    QPointer<QProgressDialog> m_fenetre;
    bool m_abandonnee = false;
};
