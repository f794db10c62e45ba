#pragma once

#include "platform/StandardOutput.h"

#include <QtGlobal>

/// A simulated circuit: five settings registers, which start at 0, and signal outputs, which are
/// lines on standard output. Power, measurement and display commands are accepted and do nothing.
/// A device belongs to one thread.
class SomeCircuit {
public:
    explicit SomeCircuit(StandardOutput &output = StandardOutput::standard());

    qint64 mode = 0;
    qint64 port = 0;
    qint64 vr1 = 0;
    qint64 cds = 0;
    qint64 productcode = 0;

    void modeSetting(qint64 n) { mode = n; }
    void portSetting(qint64 n) { port = n; }
    void VRSetting(qint64 n) { vr1 = n; }
    void CDSSetting(qint64 n) { cds = n; }
    void productcodeSetting(qint64 n); ///< also prints the code

    void PowerOn() { }
    void PowerOff() { }

    void signal(qint64 n);  ///< prints n
    void signal0(qint64 n); ///< prints n + 1 lines "0"; nothing when n is negative
    void signal1(qint64 n); ///< prints n + 1 lines "1"; nothing when n is negative

    void sokutei(qint64) { } ///< measures
    void display(qint64) { }
    void func1(qint64) { }

private:
    StandardOutput &m_output;
};
