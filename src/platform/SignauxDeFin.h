// SIGINT, SIGTERM and SIGHUP, handed to the event loop.
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

class SignauxDeFin
{
public:
    /// From the event loop, and never while a Retenue lives, the first of them calls `avant` and then ends the process,
    /// as it would have done. Further ones change nothing: `avant` saves what would be lost. SIGQUIT is left alone, for
    /// a program that hangs. Signals that are ignored stay so. One object at a time.
    explicit SignauxDeFin(std::function<void()> avant);
    ~SignauxDeFin();
    SignauxDeFin(const SignauxDeFin&) = delete;
    SignauxDeFin& operator=(const SignauxDeFin&) = delete;

private:
    void Entendre();

    std::function<void()> m_avant;
    int m_tube[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> m_guetteur;
};
