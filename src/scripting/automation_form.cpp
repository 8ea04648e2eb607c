#include "scripting/automation_form.h"

#include "core/astro_core.h"
#include "core/text_forms.h"

#include <cmath>
#include <utility>

namespace tarvelle {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// Check boxes and options are stored as the Str form of 0 or 1; the Run keys and the triggers
// as a plain "0" or "1".
QString Checked(bool on) {
    return on ? " 1" : " 0";
}
QString Plain(bool on) {
    return on ? "1" : "0";
}
QString Single(float x) {
    return Q(StrForm(x));
}

bool InRange(float x, float low, float high) {
    return !(x < low) && !(x > high);
}

bool CheckAngles(Station& st, AutomationParameters& p) {
    if (!InRange(p.JupAlt1, 0.0f, 90.0f) || !InRange(p.JupAlt2, 0.0f, 90.0f) || p.JupAlt1 == p.JupAlt2) {
        st.dialogs.Message("One or more of the Jupiter altitudes that you\r\nselected, is invalid. Valid altitudes are "
                           "between\r\n0 and 90 degrees. Also both altitudes cannot be equal.",
                           "Altitude Error");
        return false;
    }
    st.settings.save(kTasksSection, "JupAlt1", Single(p.JupAlt1));
    st.settings.save(kTasksSection, "JupAlt2", Single(p.JupAlt2));
    if (!InRange(p.JupAz1, 0.0f, 359.99f) || !InRange(p.JupAz2, 0.0f, 359.99f) || p.JupAz1 == p.JupAz2) {
        st.dialogs.Message("One or more of the Jupiter azimuths that you\r\nselected, is invalid. Valid azimuths are "
                           "between\r\n0 and 359.99 degrees. Also the selected azimuths must\r\nnot have the same value.",
                           "Altitude Error");
        return false;
    }
    if (p.JupAz1 > p.JupAz2) std::swap(p.JupAz1, p.JupAz2);
    if (p.JupAlt1 > p.JupAlt2) std::swap(p.JupAlt1, p.JupAlt2);
    st.settings.save(kTasksSection, "JupAz1", Single(p.JupAz1));
    st.settings.save(kTasksSection, "JupAz2", Single(p.JupAz2));
    return true;
}

bool CheckScripts(Station& st, AutomationParameters& p, const AutomationEntries& e) {
    // The words follow the rows on the window, one off from the scripts' numbers.
    const char* ordinal[] = {"", "Second", "Third", "Fourth", "First"};
    for (size_t i = 1; i <= kTaskScripts; ++i) {
        p.ScriptFileName[i] = e.paths[i];
        if (p.RunScript[i] && !FileExists(e.paths[i])) {
            st.dialogs.Message(QString("The ") + ordinal[i] + " Script File you have indicated cannot be found.",
                               "Script File Missing");
            return false;
        }
        st.settings.save(kTasksSection, kTaskRunKeys[i], Plain(p.RunScript[i]));
        st.settings.save(kTasksSection, kTaskFileKeys[i], Q(e.paths[i]));
    }
    return true;
}

bool CheckTaskDate(Station& st, AutomationParameters& p, AutomationEntries& e) {
    const Core& c = st.core;
    const double local = st.clock.LocalNow();
    const double gmt = local - c.ObsTZ / 24.0;
    std::vector<std::string> messages;
    const double date = DateFromBoxes(e.boxes, std::floor(c.UseGMT ? gmt : local), messages);
    for (const std::string& m : messages) st.dialogs.Message(Q(m));
    const double time = TimeFromBoxes(e.boxes);
    double when = date + time;
    if (!e.optGMT) when -= c.ObsTZ / 24.0;
    if (when < gmt) {
        st.dialogs.Message("The date you entered for tasks has \r\nexpired. Enter a valid date and time.",
                           "Task Date Expired");
        return false;
    }
    p.TaskDate = date;
    p.TaskTime = time;
    st.settings.save(kTasksSection, "TaskDate", Q(TaskDateText(date)));
    return true;
}

bool CheckSteps(Station& st, const AutomationEntries& e, const QString& title) {
    const double alt = ValueOfText(e.altChangeText), az = ValueOfText(e.azChangeText);
    if (e.altChanges && (!(alt > 0) || alt > 179)) {
        st.dialogs.Message("Invalid value for Altitude Changes By.", title);
        return false;
    }
    if (e.azChanges && (!(az > 0) || az > 359)) {
        st.dialogs.Message("Invalid value for Azimuth Changes By.", title);
        return false;
    }
    return true;
}

} // namespace

bool SaveAutomationEntries(Station& st, AutomationParameters& p, AutomationEntries& e, const QString& programTitle) {
    if (!CheckAngles(st, p) || !CheckScripts(st, p, e)) return false;
    if (e.doOnThisDate && !CheckTaskDate(st, p, e)) return false;
    p.TaskTime = TimeFromBoxes(e.boxes);
    st.settings.save(kTasksSection, "TaskTime", Q(TaskTimeText(p.TaskTime)));
    p.TaskUseGMT = e.optGMT;
    st.settings.save(kTasksSection, "TaskUseGMT", Checked(e.optGMT));
    p.AltChanges = e.altChanges;
    p.AzChanges = e.azChanges;
    if (!CheckSteps(st, e, programTitle)) return false;

    if (e.doDaily) e.doOnThisDate = false; // Do Daily wins
    st.settings.save(kTasksSection, "AzChangeDeg", Q(e.azChangeText));
    st.settings.save(kTasksSection, "AltChangeDeg", Q(e.altChangeText));
    st.settings.save(kTasksSection, "AltChanges", Plain(e.altChanges));
    st.settings.save(kTasksSection, "AzChanges", Plain(e.azChanges));
    st.settings.save(kTasksSection, "DoAtThisTime", Checked(e.doAtThisTime));
    st.settings.save(kTasksSection, "AudibleAlert", Checked(e.audibleAlert));
    st.settings.save(kTasksSection, "DoDaily", Checked(e.doDaily));
    st.settings.save(kTasksSection, "DoOnThisDate", Checked(e.doOnThisDate));
    p.AltChangeDeg = static_cast<float>(ValueOfText(e.altChangeText));
    p.AzChangeDeg = static_cast<float>(ValueOfText(e.azChangeText));
    p.DoAtThisTime = e.doAtThisTime;
    p.AudibleAlert = e.audibleAlert;
    p.DoDaily = e.doDaily;
    p.DoOnThisDate = e.doOnThisDate;
    p.UseJupAz = e.useJupAz;
    p.UseJupAlt = e.useJupAlt;
    p.SunIsDown = e.sunIsDown;
    st.settings.save(kTasksSection, "JupAz", Checked(e.useJupAz));
    st.settings.save(kTasksSection, "JupAlt", Checked(e.useJupAlt));
    st.settings.save(kTasksSection, "RunScript", Plain(p.RunScript[1]));
    st.settings.save(kTasksSection, "RunScript2", Plain(p.RunScript[2]));
    st.settings.save(kTasksSection, "SunIsDown", Checked(e.sunIsDown));
    // The running task takes the target at its next load.
    st.settings.save(kTasksSection, "AltAzTarget", e.optJup ? "0" : "1");
    return true;
}

} // namespace tarvelle
