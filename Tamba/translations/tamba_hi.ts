<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hi_IN" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>OK</source>
        <translation>ठीक है</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>जोड़ें</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>खर्च</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>इनवॉइस</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Bank</source>
        <translation>बैंक</translation>
    </message>
    <message>
        <source>No category</source>
        <translation>कोई श्रेणी नहीं</translation>
    </message>
    <message>
        <source>India</source>
        <translation>भारत</translation>
    </message>
</context>
<context>
    <name>tamba::Sidebar</name>
    <message>
        <source>Back to Your Books</source>
        <translation>अपने बहीखाते पर लौटें</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>सेटिंग</translation>
    </message>
    <message>
        <source>Sample books</source>
        <translation>नमूना बहीखाता</translation>
    </message>
    <message>
        <source>My books</source>
        <translation>मेरा बहीखाता</translation>
    </message>
    <message>
        <source>Couldn’t save</source>
        <translation>सहेजा नहीं जा सका</translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation>सहेजा जा रहा है…</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>सहेजा गया</translation>
    </message>
    <message>
        <source>Click to try again.</source>
        <translation>फिर कोशिश करने के लिए क्लिक करें।</translation>
    </message>
</context>
<context>
    <name>tamba::AppearancePage</name>
    <message>
        <source>Windows</source>
        <translation>विंडो</translation>
    </message>
    <message>
        <source>Like the desktop</source>
        <translation>डेस्कटॉप के अनुसार</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>हल्का</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>गहरा</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>भाषा</translation>
    </message>
    <message>
        <source>From the next start. Invoices stay in English.</source>
        <translation>अगली बार खोलने पर। इनवॉइस अंग्रेज़ी में ही रहते हैं।</translation>
    </message>
    <message>
        <source>Both belong to this computer, not to the books.</source>
        <translation>ये दोनों इस कंप्यूटर के हैं, बहीखाते के नहीं।</translation>
    </message>
</context>
<context>
    <name>tamba::WelcomeScreen</name>
    <message>
        <source>Welcome to Tamba</source>
        <translation>Tamba में आपका स्वागत है</translation>
    </message>
    <message>
        <source>Your books stay on this computer, in a folder of yours. Four short steps, and only the name has to be given; everything can be changed later in the settings.</source>
        <translation>आपका बहीखाता इसी कंप्यूटर पर, आपके ही फ़ोल्डर में रहता है। चार छोटे चरण हैं, और केवल नाम देना ज़रूरी है; बाकी सब बाद में सेटिंग में बदला जा सकता है।</translation>
    </message>
    <message>
        <source>Business name</source>
        <translation>व्यवसाय का नाम</translation>
    </message>
    <message>
        <source>As it stands on your invoices</source>
        <translation>जैसा आपके इनवॉइस पर लिखा जाता है</translation>
    </message>
    <message>
        <source>State</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>Choose later</source>
        <translation>बाद में चुनें</translation>
    </message>
    <message>
        <source>Whether an invoice carries CGST + SGST or IGST depends on it.</source>
        <translation>इनवॉइस पर CGST + SGST लगेगा या IGST, यह इसी पर निर्भर है।</translation>
    </message>
    <message>
        <source>How do you charge tax?</source>
        <translation>आप कर कैसे लगाते हैं?</translation>
    </message>
    <message>
        <source>Registered for GST, enter your GSTIN; it gives your state and PAN, too. Not registered, choose that and invoices carry no tax.</source>
        <translation>GST में पंजीकृत हों तो अपना GSTIN लिखें; उसी से राज्य और PAN भी मिल जाते हैं। पंजीकृत न हों तो वही चुनें, तब इनवॉइस पर कर नहीं लगता।</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>कर संख्या</translation>
    </message>
    <message>
        <source>How should invoices look?</source>
        <translation>इनवॉइस कैसे दिखें?</translation>
    </message>
    <message>
        <source>A colour, a logo if you have one, and how numbers begin.</source>
        <translation>एक रंग, लोगो हो तो वह, और संख्याओं की शुरुआत।</translation>
    </message>
    <message>
        <source>Accent colour</source>
        <translation>मुख्य रंग</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>लोगो</translation>
    </message>
    <message>
        <source>Numbers begin with</source>
        <translation>संख्या की शुरुआत</translation>
    </message>
    <message>
        <source>Where should the books live?</source>
        <translation>बहीखाता कहाँ रखा जाए?</translation>
    </message>
    <message>
        <source>One folder holds everything: the books, receipts, invoices and a backup of every day. A folder that is kept in step between computers works, too.</source>
        <translation>सब कुछ एक ही फ़ोल्डर में रहता है: बहीखाता, रसीदें, इनवॉइस और हर दिन का बैकअप। कई कंप्यूटरों में समान रखा जाने वाला फ़ोल्डर भी चलेगा।</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation>दूसरा फ़ोल्डर चुनें…</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>फ़ोल्डर</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>आगे</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>पीछे</translation>
    </message>
    <message>
        <source>Look Around First</source>
        <translation>पहले देख लें</translation>
    </message>
    <message>
        <source>Skip to My First Invoice</source>
        <translation>सीधे पहले इनवॉइस पर</translation>
    </message>
    <message>
        <source>Explore the Sample Books</source>
        <translation>नमूना बहीखाता देखें</translation>
    </message>
    <message>
        <source>Make My First Invoice</source>
        <translation>पहला इनवॉइस बनाएँ</translation>
    </message>
    <message>
        <source>Open Them</source>
        <translation>इन्हें खोलें</translation>
    </message>
</context>
<context>
    <name>tamba::Window</name>
    <message>
        <source>&amp;File</source>
        <translation>फ़ाइल (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>बदलें (&amp;E)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>देखें (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Invoice</source>
        <translation>इनवॉइस (&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Bank</source>
        <translation>बैंक (&amp;B)</translation>
    </message>
    <message>
        <source>Look Again</source>
        <translation>फिर से देखें</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>फ़ोल्डर चुनें…</translation>
    </message>
    <message>
        <source>Begin New Books Here</source>
        <translation>यहीं नया बहीखाता शुरू करें</translation>
    </message>
    <message>
        <source>The books are not there</source>
        <translation>बहीखाता वहाँ नहीं है</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>फिर कोशिश करें</translation>
    </message>
</context>
</TS>
