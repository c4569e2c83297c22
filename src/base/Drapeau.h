// A boolean that tells when it changes.
#pragma once

#include <functional>
#include <utility>

class Drapeau
{
public:
    Drapeau(bool leve = false) : m_leve(leve) {}
    /// Its value goes to the copy, not who follows it.
    Drapeau(const Drapeau& autre) : m_leve(autre.m_leve) {}
    Drapeau& operator=(const Drapeau& autre) { return *this = autre.m_leve; }
    Drapeau& operator=(bool leve)
    {
        if (std::exchange(m_leve, leve) != leve && AChange)
            AChange();
        return *this;
    }
    operator bool() const { return m_leve; }

    /// Called after each change; not when the same value is written again.
    std::function<void()> AChange;

private:
    bool m_leve;
};
