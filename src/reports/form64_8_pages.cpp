#include "reports/form64_8_pages.h"

#include "reports/report_state.h"
#include "reports/vsprint.h"

#include <span>
#include <tuple>

namespace quillon {

namespace {

// The tax authority's own pages, given when the program is built.
const char* const kAgentFormsPage = QUILLON_AGENT_FORMS_PAGE;
const char* const kTaxHomePage = QUILLON_TAX_HOME_PAGE;

// A change of font before a line of words: a size sets all three; otherwise
// only what is named changes (-1 keeps it).
struct FontChange {
    double points = 0;
    int bold = -1;
    int italic = -1;
};
constexpr bool B = true;
constexpr bool I = true;
constexpr FontChange Pt(double points, bool bold = false, bool italic = false) {
    return {points, bold, italic};
}
constexpr FontChange kRegular{0, 0, 0};
constexpr FontChange kBoldOn{0, 1, -1};
constexpr FontChange kBoldOff{0, 0, -1};
constexpr FontChange kItalicOn{0, -1, 1};
constexpr FontChange kItalicOff{0, -1, 0};

enum class Place { At, Right, Next };

struct Words {
    FontChange font;
    Place place;
    double x;
    double y;
    const char* text;
};
constexpr Words At(double x, double y, const char* text, FontChange font = {}) {
    return {font, Place::At, x, y, text};
}
constexpr Words Right(double x, double y, const char* text, FontChange font = {}) {
    return {font, Place::Right, x, y, text};
}
constexpr Words Next(const char* text, FontChange font = {}) {
    return {font, Place::Next, 0, 0, text};
}

void Apply(FontChange font) {
    if (font.points > 0) {
        VSSetFont(font.points, font.bold == 1, font.italic == 1);
        return;
    }
    if (font.bold >= 0) {
        font.bold == 1 ? VSBoldOn() : VSBoldOff();
    }
    if (font.italic >= 0) {
        font.italic == 1 ? VSItalicOn() : VSItalicOff();
    }
}

void Draw(std::span<const Words> lines) {
    for (const Words& words : lines) {
        Apply(words.font);
        const QString text = QString::fromLatin1(words.text);
        switch (words.place) {
            case Place::At:
                VSTextAt(words.x, words.y, text);
                break;
            case Place::Right:
                VSTextRightAt(words.x, words.y, text);
                break;
            case Place::Next:
                VSTextNext(text);
                break;
        }
    }
}

const Words kAuthority[] = {
    At(9, 19, "Please read the notes on the back before completing this", Pt(9, B)),
    At(9, 23, "authority."),
    Next(" This authority allows us to exchange and disclose", kRegular),
    At(9, 27, "information about you with your agent and to deal with"),
    At(9, 31, "them on matters within the responsibility of HM Revenue &"),
    At(9, 35, "Customs (HMRC), as specified on this form. This overrides any"),
    At(9, 39, "earlier authority given to HMRC. We will hold this authority"),
    At(9, 43, "until you tell us that the details have changed."),
};

// Shown in the light colour where the user has left the box empty.
struct Prompt {
    const char* control;
    double x;
    double y;
    const char* text;
};
const Prompt kPrompts[] = {
    {"txtClientName", 14, 53.5, "(print your name)"},
    {"txtBusinessName", 14, 65.5, "(name of your business, company or trust, if applicable)"},
    {"txtAgentName", 10, 83.5, "(agent's business name)"},
};

const Words kPage1Words[] = {
    At(10, 53.5, "I,", kItalicOff),
    At(10, 65.5, "of"),
    At(10, 77.5, "authorise HMRC to disclose information to"),
    At(10, 95.5, "I agree that the nominated agent has agreed to act on my/our"),
    At(10, 99.5, "behalf, and the information is correct and complete."),
    At(10, 103.5, "The authorisation is limited to the matters shown on the"),
    At(10, 107.5, "right-hand side of this form."),
    At(10, 114, "Signature", kItalicOn),
    Next("  see note 1 overleaf before signing", Pt(7.5, false, I)),
    At(10, 131, "Date", Pt(8.5, B, I)),
    At(9, 139, "Give your personal details or Company registered office here", Pt(8.5)),
    At(10, 144.5, "Address", Pt(7)),
    At(10, 168.5, "Postcode"),
    At(10, 174.5, "Telephone number"),
    At(9, 185, "Give your agent's details here", Pt(8.5)),
    At(10, 190.5, "Address", Pt(7)),
    At(10, 214.5, "Postcode"),
    At(10, 220.5, "Telephone number"),
    At(10, 226.5, "Agent codes (SA/CT/PAYE)"),
    At(10, 238.5, "Client reference"),
    At(9, 252.5, "For official use only", Pt(7.5, false, I)),
    At(105, 19, "Please tick the box(es) and provide the reference(s)", Pt(9, B)),
    At(105, 23, "requested"),
    Next(" only", kItalicOn),
    Next(" for those matters for which you want", kItalicOff),
    At(105, 27, "HMRC to deal with your agent."),
    At(106, 35, "Individual*/Partnership*/Trust* Tax Affairs", Pt(8.5, B, I)),
    At(106, 40, "*delete as appropriate", Pt(8, false, I)),
    Next("  (including National Insurance).", kItalicOff),
    At(106, 48, "Your National Insurance number", Pt(8.5)),
    Next("  (individuals only)", kItalicOn),
    Right(184, 50.5, "If you are"),
    Right(184, 54, "self employed"),
    Right(184, 57.5, "tick here"),
    At(106, 63, "Unique Taxpayer Reference", kItalicOff),
    Next("  (if applicable)", kItalicOn),
    Right(184, 67.5, "If UTR not yet"),
    Right(184, 71, "issued tick here"),
    At(106, 76, "If you are a Self Assessment taxpayer, we will send", Pt(8.5)),
    At(106, 79.5, "your Statement of Account to you, but if you would"),
    At(106, 83, "like us to send it to your agent instead, please tick here"),
    At(106, 97, "Tax Credits", Pt(8.5, B, I)),
    At(106, 105, "Your National Insurance number", Pt(8.5)),
    Next("  (only if not entered above)", kItalicOn),
    At(106, 117, "If you have a joint Tax Credit claim and the other claimant", kItalicOff),
    At(106, 120.5, "wants HMRC to deal with this agent, they should sign here"),
    At(106, 124.5, "Name"),
    At(106, 136.5, "Signature"),
    At(106, 154, "Joint claimant's National Insurance number"),
    At(106, 177, "Corporation Tax", Pt(8.5, B, I)),
    At(106, 183, "Company Registration number", Pt(8.5)),
    At(106, 197, "Company's Unique Taxpayer Reference"),
    At(106, 216, "NOTE: ", Pt(9, B)),
    At(116.5, 215.7, "Do not complete this section if you are an", Pt(8.5, B)),
    At(106, 219.7, "employee. Only tick the box if you are an employer"),
    At(106, 223.7, "operating PAYE"),
    At(106, 230.5, "Employer PAYE Scheme", Pt(8.5)),
    At(106, 235, "Employer PAYE reference"),
    At(106, 257, "VAT", Pt(8.5, B, I)),
    At(119, 257, "(see notes 2 and 5 overleaf)", kBoldOff),
    At(106, 264, "VAT registration number", kItalicOff),
    Right(184, 265, "If not yet", kItalicOn),
    Right(184, 268.5, "registered"),
    Right(184, 272, "tick here"),
    At(13, 278, "64-8(Substitute)(KV)", Pt(9, B)),
};

const Words kPage2Words[] = {
    At(9, 6, "1  Who should sign the form", Pt(13.5, B)),
    At(9, 13, "If the authority is for", Pt(10.5, B)),
    At(103, 13, "Who signs the form"),
    At(11, 23, "You, as an individual", Pt(11)),
    At(103, 23, "You, for your personal tax affairs"),
    At(11, 33, "A Company"),
    At(103, 33, "The secretary or other responsible officer of"),
    At(103, 37.5, "the company"),
    At(11, 47.5, "A Partnership"),
    At(103, 47.5, "The partner responsible for the partnership's"),
    At(103, 52, "tax affairs. It applies only to the partnership."),
    At(103, 56.5, "Individual partners need to sign a separate"),
    At(103, 61, "authority for their own affairs."),
    At(11, 71, "A Trust"),
    At(103, 71, "One or more of the trustees"),
    At(9, 93, "2  What this authority means", Pt(13.5, B)),
    At(12, 98, "For matters other than VAT or Tax Credits", Pt(9, B)),
    At(12, 103, "We will start sending letters and forms to your agent and", kRegular),
    At(12, 107.5, "give them access to your account information online."),
    At(12, 112, "Sometimes we need to correspond with you as well as, or"),
    At(12, 116.5, "instead of, your agent."),
    At(12, 121.5, "For example, the latest information on what SA forms we"),
    At(12, 126, "send automatically can be found on our website, go to"),
    At(12, 130.5, kAgentFormsPage, kBoldOn),
    At(12, 135, "or phone the SA Helpdesk on", kRegular),
    Next("  0845 9 000 444.", kBoldOn),
    At(12, 139.5, "You will not receive your Self Assessment Statements of", kRegular),
    At(12, 144, "Account if you authorise your agent to receive them"),
    At(12, 148.5, "instead, but paying any amount due is your"),
    At(12, 153, "responsibility."),
    At(12, 158, "We do not send National Insurance statements and"),
    At(12, 162.5, "requests for payment to your agent unless you have"),
    At(12, 167, "asked us if you can defer payment."),
    At(12, 172.5, "Companies do not receive Statements of Account."),
    At(12, 178.5, "For VAT and Tax Credits", kBoldOn),
    At(12, 183.5, "We will continue to send correspondence to you rather", kRegular),
    At(12, 188, "than to your agent but we can deal with your agent in"),
    At(12, 192.5, "writing or by phone on specific matters. If your agent is"),
    At(12, 197, "able to submit VAT returns online on your behalf, you"),
    At(12, 201.5, "will need to authorise them to do so through our"),
    At(12, 206, "website. For joint Tax Credit claims, we need both"),
    At(12, 210.5, "claimants to sign this authority to enable"),
    At(12, 215, "HM Revenue & Customs to deal with your agent."),
    At(103, 93, "3  How we use your information", Pt(13.5, B)),
    At(103, 98, "HM Revenue & Customs is a Data Controller under the", Pt(9)),
    At(103, 102.4, "Data Protection Act 1998. We hold information for the"),
    At(103, 106.8, "purposes specified in our notification to the Information"),
    At(103, 111.2, "Commissioner, including the assessment and collection of"),
    At(103, 115.6, "tax and duties, the payment of benefits and the"),
    At(103, 120, "prevention and detection of crime, and may use this"),
    At(103, 124.4, "information for any of them. We may get information"),
    At(103, 128.8, "about you from others, or we give information to"),
    At(103, 133.2, "them. If we do, it will only be as the law permits."),
    At(103, 138.6, "We may check information we receive about you with what"),
    At(103, 143, "is already in our records. This can include information"),
    At(103, 147.4, "provided by you, as well as by others, such as other"),
    At(103, 151.8, "government departments or agencies and overseas tax"),
    At(103, 156.2, "and customs authorities. We will not give information to"),
    At(103, 160.6, "anyone outside HM Revenue & Customs unless the law"),
    At(103, 165, "permits us to do so."),
    At(103, 170, "This authority does not allow your agent to request"),
    At(103, 174.4, "personal information held about you under the subject"),
    At(103, 178.8, "access provisions of the Data Protection Act 1998."),
    At(103, 184, "Further information can be found on our website,"),
    At(103, 188.4, kTaxHomePage, kBoldOn),
    At(103, 200.6, "4  Multiple agents", Pt(13.5, B)),
    At(103, 206, "If you have more than one agent (for example, one acting", Pt(9)),
    // The full stop after "Tax)" stands as the form has always had it.
    At(103, 210.4, "for the PAYE scheme and another for Corporation Tax)."),
    At(103, 214.8, "please sign one of these forms for each."),
    At(9, 227, "5  Where to send this form", Pt(13.5, B)),
    At(9, 233, "When you have completed this form please send it to:", Pt(9)),
    At(9, 237.5,
       "HM Revenue & Customs, Central Agent Authorisation Team, Longbenton, Newcastle upon "
       "Tyne, NE98 1ZZ.",
       kBoldOn),
    At(9, 242,
       "There are some exceptions to this to help speed the handling of your details in "
       "certain circumstances.",
       kRegular),
    At(9, 246.5, "If this form:"),
    At(12, 251,
       "accompanies other correspondence, send it to the appropriate HM Revenue & Customs "
       "(HMRC) office"),
    At(12, 255.5,
       "is solely for Corporation Tax affairs, send it to the HMRC office that deals with the "
       "company"),
    At(12, 260,
       "is for a Complex Personal Return or Expatriate customer, send it to the appropriate "
       "CPR team or Expat team"),
    At(12, 264.5,
       "accompanies a VAT Registration application, send it to the appropriate VAT "
       "Registration Unit"),
    At(12, 269, "has been specifically requested by an HMRC office, send it back to that office."),
};

// The boxes take one character each.
constexpr double kNinoBoxes[] = {106, 111.5, 119.5, 125, 133, 138.5, 146.5, 152, 160};
constexpr double kNinoSpans[][2] = {{0, 5},       {5.5, 10.5},  {13.5, 18.5}, {19, 24}, {27, 32},
                                    {32.5, 37.5}, {40.5, 45.5}, {46, 51},     {54, 59}};
constexpr double kCharBoxWidth = 5;
constexpr double kCharBoxHeight = 6;
constexpr double kEvenPitch = 5.5;
constexpr double kTextDrop = 4.5;

void DrawWhiteBox(double x1, double y1, double x2, double y2) {
    VSDrawFilledBox(ReportBlack, ReportWhite, 0.1, x1, y1, x2, y2);
}

void DrawCharBox(double x, double y) {
    DrawWhiteBox(x, y, x + kCharBoxWidth, y + kCharBoxHeight);
}

void DrawNinoBoxes(double y) {
    for (const double x : kNinoBoxes) {
        DrawCharBox(x, y);
    }
}

void DrawTenBoxes(double y, int count) {
    for (int n = 0; n < count; ++n) {
        DrawCharBox(106 + kEvenPitch * n, y);
    }
}

void DrawOfficialRow(double y, const char* left, const char* right) {
    VSSetFont(7.5, false, false);
    // The right half is the left moved 48 mm, its words 45 mm.
    for (const auto& [x, textX, text] : {std::tuple{0.0, 9.0, left}, {48.0, 54.0, right}}) {
        VSTextAt(textX, y, QString::fromLatin1(text));
        VSDrawBox(0.1, 18 + x, y - 3, 21 + x, y);
        VSDrawHLine(0.1, 24 + x, 47 + x, y);
        for (const double slash : {30.0, 39.0}) {
            VSDrawLine(0.1, slash + x, y - 0.5, slash + 1 + x, y - 2.5);
        }
    }
}

void DrawHeading() {
    VSSetFontName(QStringLiteral("Arial"));
    VSSetTextColour(ReportBlack);
    VSSetFont(16, true, false);
    VSTextAt(25, 4, QStringLiteral("HM Revenue"));
    VSTextAt(25, 9, QStringLiteral("& Customs"));
    VSTextRightAt(187, 9, QStringLiteral("Authorising your agent"));
    VSDrawFilledBox(ReportBlack, ReportBlack, 0, 9, 11, 194, 14);
}

void DrawRuledBox(double top, double bottom, std::initializer_list<double> lines) {
    VSDrawBox(0.1, 9, top, 98, bottom);
    for (const double y : lines) {
        VSDrawHLine(0.1, 9, 98, y);
    }
}

void DrawRules() {
    DrawRuledBox(49, 133, {55, 61, 67, 73, 79, 85, 91, 110, 127});
    DrawRuledBox(141, 178, {147, 153, 159, 165, 171});
    DrawRuledBox(187, 242, {193, 199, 205, 211, 217, 223, 229, 235});
    VSDrawHLine(0.4, 9, 98, 248);
    DrawOfficialRow(259.1, "SA", "COTAX");
    DrawOfficialRow(263.4, "NIRS", "EBS");
    DrawOfficialRow(267.7, "COP", "VAT");
    DrawOfficialRow(272, "NTC", "COP link");
    VSDrawHLine(0.4, 24, 47, 272);
    VSDrawHLine(0.4, 72, 95, 272);
}

void DrawEntryBoxes() {
    DrawCharBox(169, 31);
    DrawNinoBoxes(50);
    DrawCharBox(185, 50);
    DrawTenBoxes(65, 10);
    DrawCharBox(185, 65);
    DrawCharBox(185, 76);
    DrawCharBox(124, 93);
    DrawNinoBoxes(107);
    DrawWhiteBox(106, 126, 190, 132);
    DrawWhiteBox(106, 138, 190, 150);
    DrawNinoBoxes(156);
    DrawCharBox(131, 173);
    DrawTenBoxes(185, 10);
    DrawTenBoxes(199, 10);
    DrawCharBox(142, 226.5);
    DrawWhiteBox(106, 237, 182, 243);
    DrawCharBox(113, 253);
    DrawWhiteBox(106, 266, 160, 272);
    DrawCharBox(185, 266);
}

void DrawWording(const Form64Entries& entries) {
    Draw(kAuthority);
    VSSetFont(8.5, true, true);
    VSSetTextColour(ReportLight);
    for (const Prompt& prompt : kPrompts) {
        if (entries.Text(QLatin1String(prompt.control)).isEmpty()) {
            VSTextAt(prompt.x, prompt.y, QString::fromLatin1(prompt.text));
        }
    }
    VSSetTextColour(ReportBlack);
    Draw(kPage1Words);
}

// Where each entered text is written.
struct Entered {
    const char* control;
    double x;
    double y;
};
const Entered kEnteredTexts[] = {
    {"txtClientName", 15, 53.5},       {"txtBusinessName", 15, 65.5},
    {"txtAgentName", 15, 83.5},        {"txtClientAddress1", 23, 145.5},
    {"txtClientAddress2", 23, 151.5},  {"txtClientAddress3", 23, 157.5},
    {"txtClientAddress4", 23, 163.5},  {"txtClientPostcode", 23, 169.5},
    {"txtClientTelephone", 35, 176.5}, {"txtAgentAddress1", 23, 191.5},
    {"txtAgentAddress2", 23, 197.5},   {"txtAgentAddress3", 23, 203.5},
    {"txtAgentAddress4", 23, 209.5},   {"txtAgentPostcode", 23, 215.5},
    {"txtAgentTelephone", 35, 221.5},  {"txtAgentCodes", 14, 233.5},
    {"txtClientReference", 35, 240.5},
};

void DrawEnteredTexts(const Form64Entries& entries) {
    VSSetFontName(ReportFont);
    VSSetFont(10, true, false);
    for (const Entered& entered : kEnteredTexts) {
        VSTextAt(entered.x, entered.y, entries.Text(QLatin1String(entered.control)));
    }
}

// The heading's words that do not apply to the client are struck through.
void DrawTaxAffairsChoice(qint16 clientType) {
    if (clientType == ctCompany) {
        return;
    }
    constexpr double kWords[][2] = {{106, 120}, {122, 137}, {140, 147}};
    for (int type = ctIndividual; type <= ctTrust; ++type) {
        if (type != clientType) {
            VSDrawHLine(0.8, kWords[type - 1][0], kWords[type - 1][1], 34);
        }
    }
    VSDrawTick(171, 35.5);
}

enum class Mark { Tick, Nino, Even, Text };
struct Entry {
    const char* control;
    Mark mark;
    double x;
    double y;
    int count = 0;
};
const Entry kEntries[] = {
    {"txtClientNINO", Mark::Nino, 106, 50},
    {"chkSelfEmployed", Mark::Tick, 185, 50},
    {"txtClientUTR", Mark::Even, 106, 65, 10},
    {"chkUTRNotIssued", Mark::Tick, 185, 65},
    {"chkStatementsToAgent", Mark::Tick, 185, 76},
    {"chkTaxCredits", Mark::Tick, 124, 93},
    {"txtTaxCreditNINO", Mark::Nino, 106, 107},
    {"txtJointClaimant", Mark::Text, 111, 130.5},
    {"txtJointClaimantNINO", Mark::Nino, 106, 156},
    {"chkCorporationTax", Mark::Tick, 131, 173},
    {"txtCompanyRegistration", Mark::Even, 106, 185, 8},
    {"txtCompanyUTR", Mark::Even, 106, 199, 10},
    {"chkPAYE", Mark::Tick, 142, 226.5},
    {"txtPAYEReference", Mark::Text, 111, 241.5},
    {"chkVAT", Mark::Tick, 113, 253},
    {"txtVATRegistration", Mark::Text, 111, 270},
    {"chkVATNotRegistered", Mark::Tick, 185, 266},
};

void DrawTickIf(double x, double y, bool ticked) {
    if (ticked) {
        VSDrawTick(x + 2.0, y + kTextDrop);
    }
}

void PrintNinoChars(double x, double y, const QString& text) {
    for (int n = 0; n < 9; ++n) {
        VSTextCentred(x + kNinoSpans[n][0], x + kNinoSpans[n][1], y + kTextDrop, text.mid(n, 1));
    }
}

void PrintEvenChars(double x, double y, const QString& text, int count) {
    for (int n = 0; n < count; ++n) {
        const double left = x + kEvenPitch * n;
        VSTextCentred(left, left + kCharBoxWidth, y + kTextDrop, text.mid(n, 1));
    }
}

void DrawEntries(const Form64Entries& entries) {
    for (const Entry& entry : kEntries) {
        const QString control = QLatin1String(entry.control);
        switch (entry.mark) {
            case Mark::Tick:
                DrawTickIf(entry.x, entry.y, entries.Ticked(control));
                break;
            case Mark::Nino:
                PrintNinoChars(entry.x, entry.y, entries.Text(control));
                break;
            case Mark::Even:
                PrintEvenChars(entry.x, entry.y, entries.Text(control), entry.count);
                break;
            case Mark::Text:
                VSTextAt(entry.x, entry.y, entries.Text(control));
                break;
        }
    }
}

void DrawShading() {
    constexpr double kPanels[][4] = {{104, 29, 194, 85},
                                     {104, 90, 194, 165},
                                     {104, 170, 194, 206},
                                     {104, 211, 194, 245},
                                     {104, 250, 194, 274}};
    if (ReportShading) {
        for (const auto& p : kPanels) {
            VSDrawFilledBox(ReportWhite, ReportLight, 0, p[0], p[1], p[2], p[3]);
        }
    }
}

}  // namespace

void DrawForm64Page1(const Form64Entries& entries) {
    DrawShading();
    DrawHeading();
    DrawRules();
    DrawEntryBoxes();
    VSSetFontName(QStringLiteral("Arial"));
    DrawWording(entries);
    DrawEnteredTexts(entries);
    DrawTaxAffairsChoice(entries.clientType);
    DrawEntries(entries);
}

void DrawForm64Page2() {
    VSDrawFilledBox(ReportBlack, ReportLight, 0.2, 9, 16, 192, 77);
    for (const double y : {97.0, 177.5, 250.0, 254.5, 259.0, 263.5, 268.0}) {
        VSDrawDisc(ReportBlack, 10, y, 0.5);
    }
    VSSetFontName(QStringLiteral("Arial"));
    VSSetTextColour(ReportBlack);
    Draw(kPage2Words);
}

}  // namespace quillon
