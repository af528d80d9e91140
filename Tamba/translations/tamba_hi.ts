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
        <translation>ख़र्च</translation>
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
    <message>
        <source>Print %1</source>
        <translation>%1 छापें</translation>
    </message>
    <message>
        <source>… and %1 more</source>
        <translation>… और %1 अन्य</translation>
    </message>
    <message>
        <source>This receipt is already in your books</source>
        <translation>यह रसीद आपके बहीखाते में पहले से है</translation>
    </message>
    <message>
        <source>%1 of these receipts are already in your books</source>
        <translation>इनमें से %1 रसीदें आपके बहीखाते में पहले से हैं</translation>
    </message>
    <message>
        <source>Leave It Out</source>
        <translation>इसे छोड़ दें</translation>
    </message>
    <message>
        <source>Leave Them Out</source>
        <translation>इन्हें छोड़ दें</translation>
    </message>
    <message>
        <source>Add Again</source>
        <translation>फिर भी जोड़ें</translation>
    </message>
    <message>
        <source>Receipts</source>
        <translation>रसीदें</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>सभी फ़ाइलें</translation>
    </message>
    <message>
        <source>Add Receipts</source>
        <translation>रसीदें जोड़ें</translation>
    </message>
    <message>
        <source>Bank statements</source>
        <translation>बैंक स्टेटमेंट</translation>
    </message>
    <message>
        <source>Import Statement</source>
        <translation>स्टेटमेंट लाएँ</translation>
    </message>
    <message>
        <source>Open Library Folder</source>
        <translation>बहीखाते का फ़ोल्डर खोलें</translation>
    </message>
    <message>
        <source>Choose a Picture</source>
        <translation>चित्र चुनें</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>चित्र</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>नया इनवॉइस</translation>
    </message>
    <message>
        <source>New Estimate</source>
        <translation>नया एस्टीमेट</translation>
    </message>
    <message>
        <source>New Credit Note</source>
        <translation>नया क्रेडिट नोट</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>आइटम</translation>
    </message>
    <message>
        <source>HSN/SAC</source>
        <translation>HSN/SAC</translation>
    </message>
    <message>
        <source>Qty</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>इकाई</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>दर</translation>
    </message>
    <message>
        <source>Disc.</source>
        <translation>छूट</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>Add anyway</source>
        <translation>फिर भी जोड़ें</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>हर हफ़्ते</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>हर महीने</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>हर तिमाही</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>हर साल</translation>
    </message>
    <message>
        <source>The number stays in the series and the page is stamped “Void”; nothing on it counts any more. This, and the steps before it, cannot be undone.</source>
        <translation>नंबर शृंखला में बना रहता है और पन्ने पर “Void” की मुहर लगती है; इस पर लिखी कोई रक़म अब नहीं गिनी जाती। यह और इससे पहले के क़दम वापस नहीं लिए जा सकते।</translation>
    </message>
    <message>
        <source>%1 has ended. If its GST return is filed already, make a credit note instead.</source>
        <translation>%1 बीत चुका है। उसका GST रिटर्न भर दिया हो तो इसके बदले क्रेडिट नोट बनाएँ।</translation>
    </message>
    <message>
        <source>Bookkeeping for freelancers and small studios.</source>
        <translation>फ़्रीलांसरों और छोटे स्टूडियो के लिए बहीखाता।</translation>
    </message>
    <message>
        <source>The books to open.</source>
        <translation>खोला जाने वाला बहीखाता।</translation>
    </message>
    <message>
        <source>Receipts and statements to add to them.</source>
        <translation>उसमें जोड़ी जाने वाली रसीदें और स्टेटमेंट।</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>छोटा</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>बड़ा</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>एक नज़र में</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>रिपोर्ट</translation>
    </message>
    <message>
        <source>Play this storyboard on the sample books and film it.</source>
        <translation>इस पटकथा को नमूना बही पर चलाकर उसका वीडियो बनाएँ।</translation>
    </message>
    <message>
        <source>Where the film goes: a name that ends in .mp4 or .webm.</source>
        <translation>वीडियो कहाँ रखा जाए: नाम जिसके अंत में .mp4 या .webm हो।</translation>
    </message>
    <message>
        <source>Order By</source>
        <translation>क्रम चुनें</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>चरण %1, कुल %2</translation>
    </message>
    <message>
        <source>How an invoice will look</source>
        <translation>इनवॉइस कैसा दिखेगा</translation>
    </message>
</context>
<context>
    <name>Rows</name>
    <message>
        <source>Open</source>
        <translation>बाकी</translation>
    </message>
    <message>
        <source>Matched</source>
        <translation>मिलाई गई</translation>
    </message>
    <message>
        <source>Set aside</source>
        <translation>अलग रखी</translation>
    </message>
    <message>
        <source>All</source>
        <translation>सभी</translation>
    </message>
    <message>
        <source>1 line</source>
        <translation>1 पंक्ति</translation>
    </message>
    <message>
        <source>On time</source>
        <translation>समय पर</translation>
    </message>
    <message>
        <source>Check GSTIN</source>
        <translation>GSTIN जाँचें</translation>
    </message>
    <message>
        <source>Archived</source>
        <translation>संग्रह में</translation>
    </message>
    <message>
        <source>Offered for nothing new; what there is stays.</source>
        <translation>नए काम में नहीं सुझाया जाता; जो है, वह बना रहता है।</translation>
    </message>
    <message>
        <source>1 client</source>
        <translation>1 ग्राहक</translation>
    </message>
    <message>
        <source>1 day</source>
        <translation>1 दिन</translation>
    </message>
    <message>
        <source>Cannot be right</source>
        <translation>सही नहीं हो सकता</translation>
    </message>
    <message>
        <source>1 invoice</source>
        <translation>1 इनवॉइस</translation>
    </message>
    <message>
        <source>1 estimate</source>
        <translation>1 एस्टीमेट</translation>
    </message>
    <message>
        <source>1 credit note</source>
        <translation>1 क्रेडिट नोट</translation>
    </message>
    <message>
        <source>Drafts</source>
        <translation>ड्राफ़्ट</translation>
    </message>
    <message>
        <source>Unpaid</source>
        <translation>बकाया</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>देय तारीख़ बीती</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>भुगतान हुआ</translation>
    </message>
    <message>
        <source>Void</source>
        <translation>निरस्त</translation>
    </message>
    <message>
        <source>Accepted</source>
        <translation>मंज़ूर</translation>
    </message>
    <message>
        <source>Declined or expired</source>
        <translation>नामंज़ूर या समाप्त</translation>
    </message>
    <message>
        <source>Applied</source>
        <translation>लागू</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>इनवॉइस</translation>
    </message>
    <message>
        <source>Estimates</source>
        <translation>एस्टीमेट</translation>
    </message>
    <message>
        <source>Credit notes</source>
        <translation>क्रेडिट नोट</translation>
    </message>
    <message>
        <source>Subtotal</source>
        <translation>उप-योग</translation>
    </message>
    <message>
        <source>Discount</source>
        <translation>छूट</translation>
    </message>
    <message>
        <source>Taxable value</source>
        <translation>कर योग्य मूल्य</translation>
    </message>
    <message>
        <source>Round-off</source>
        <translation>राउंड-ऑफ़</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>कुल</translation>
    </message>
    <message>
        <source>Void: it keeps its number and counts no more.</source>
        <translation>निरस्त: नंबर बना रहता है, पर यह अब गिना नहीं जाता।</translation>
    </message>
    <message>
        <source>Settled</source>
        <translation>चुकता</translation>
    </message>
    <message>
        <source>Paid in full</source>
        <translation>पूरा भुगतान हुआ</translation>
    </message>
    <message>
        <source>Became an invoice</source>
        <translation>इनवॉइस बन गया</translation>
    </message>
    <message>
        <source>Billed</source>
        <translation>बिल हुआ</translation>
    </message>
    <message>
        <source>Billed on to the client.</source>
        <translation>ग्राहक के बिल में जोड़ा गया।</translation>
    </message>
    <message>
        <source>Billable</source>
        <translation>बिल योग्य</translation>
    </message>
    <message>
        <source>To be billed on to the client.</source>
        <translation>ग्राहक के बिल में जोड़ना है।</translation>
    </message>
    <message>
        <source>No rate</source>
        <translation>दर नहीं</translation>
    </message>
    <message>
        <source>Add the exchange rate to include this in reports.</source>
        <translation>इसे रिपोर्ट में शामिल करने के लिए विनिमय दर लिखें।</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>जाँचें</translation>
    </message>
    <message>
        <source>No category</source>
        <translation>श्रेणी नहीं</translation>
    </message>
    <message>
        <source>1 expense</source>
        <translation>1 ख़र्च</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>To check</source>
        <translation>जाँचने हैं</translation>
    </message>
    <message>
        <source>Mileage</source>
        <translation>यात्रा</translation>
    </message>
    <message>
        <source>No receipt</source>
        <translation>रसीद नहीं</translation>
    </message>
    <message>
        <source>UPI</source>
        <translation>UPI</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>कार्ड</translation>
    </message>
    <message>
        <source>Bank transfer</source>
        <translation>बैंक ट्रांसफ़र</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>नक़द</translation>
    </message>
    <message>
        <source>Petty cash</source>
        <translation>छोटी नक़दी</translation>
    </message>
    <message>
        <source>Cheque</source>
        <translation>चेक</translation>
    </message>
    <message>
        <source>Wallet</source>
        <translation>वॉलेट</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>अन्य</translation>
    </message>
    <message>
        <source>All time</source>
        <translation>पूरा समय</translation>
    </message>
    <message>
        <source>Owed to you</source>
        <translation>आपको मिलना है</translation>
    </message>
    <message>
        <source>All invoices are paid</source>
        <translation>सभी इनवॉइस का भुगतान हो चुका है</translation>
    </message>
    <message>
        <source>1 open invoice</source>
        <translation>1 खुला इनवॉइस</translation>
    </message>
    <message>
        <source>Nobody is late</source>
        <translation>किसी ने देर नहीं की</translation>
    </message>
    <message>
        <source>1 invoice is late</source>
        <translation>1 इनवॉइस में देर हुई</translation>
    </message>
    <message>
        <source>Income this year</source>
        <translation>इस साल की आय</translation>
    </message>
    <message>
        <source>Profit this year</source>
        <translation>इस साल का लाभ</translation>
    </message>
    <message>
        <source>1 record is in no figure: the exchange rate is missing or an amount cannot be right</source>
        <translation>1 रिकॉर्ड किसी आँकड़े में नहीं है: विनिमय दर नहीं है या रक़म सही नहीं हो सकती</translation>
    </message>
    <message>
        <source>1 reminder</source>
        <translation>1 बार याद दिलाया</translation>
    </message>
    <message>
        <source>1 more invoice overdue</source>
        <translation>1 और इनवॉइस की देय तारीख़ बीती</translation>
    </message>
    <message>
        <source>1 bank line to match</source>
        <translation>1 बैंक पंक्ति मिलानी है</translation>
    </message>
    <message>
        <source>What they paid for, or which invoice they pay</source>
        <translation>किसका भुगतान था, या किस इनवॉइस का है</translation>
    </message>
    <message>
        <source>1 draft invoice not issued yet</source>
        <translation>1 ड्राफ़्ट इनवॉइस जारी नहीं हुआ</translation>
    </message>
    <message>
        <source>%1 draft invoices not issued yet</source>
        <translation>%1 ड्राफ़्ट इनवॉइस जारी नहीं हुए</translation>
    </message>
    <message>
        <source>1 draft estimate not issued yet</source>
        <translation>1 ड्राफ़्ट एस्टीमेट जारी नहीं हुआ</translation>
    </message>
    <message>
        <source>%1 draft estimates not issued yet</source>
        <translation>%1 ड्राफ़्ट एस्टीमेट जारी नहीं हुए</translation>
    </message>
    <message>
        <source>1 draft credit note not issued yet</source>
        <translation>1 ड्राफ़्ट क्रेडिट नोट जारी नहीं हुआ</translation>
    </message>
    <message>
        <source>%1 draft credit notes not issued yet</source>
        <translation>%1 ड्राफ़्ट क्रेडिट नोट जारी नहीं हुए</translation>
    </message>
    <message>
        <source>1 expense without an exchange rate</source>
        <translation>1 ख़र्च बिना विनिमय दर के</translation>
    </message>
    <message>
        <source>%1 expenses without an exchange rate</source>
        <translation>%1 ख़र्च बिना विनिमय दर के</translation>
    </message>
    <message>
        <source>Left out of every figure until it is there</source>
        <translation>दर मिलने तक किसी आँकड़े में नहीं</translation>
    </message>
    <message>
        <source>1 receipt to check</source>
        <translation>1 रसीद जाँचनी है</translation>
    </message>
    <message>
        <source>%1 receipts to check</source>
        <translation>%1 रसीदें जाँचनी हैं</translation>
    </message>
    <message>
        <source>What was read may be wrong</source>
        <translation>जो पढ़ा गया, वह ग़लत हो सकता है</translation>
    </message>
    <message>
        <source>1 expense without a category</source>
        <translation>1 ख़र्च बिना श्रेणी के</translation>
    </message>
    <message>
        <source>%1 expenses without a category</source>
        <translation>%1 ख़र्च बिना श्रेणी के</translation>
    </message>
    <message>
        <source>Uncategorised in the reports</source>
        <translation>रिपोर्ट में बिना श्रेणी के</translation>
    </message>
    <message>
        <source>1 expense to bill on</source>
        <translation>1 ख़र्च ग्राहक को बिल करना है</translation>
    </message>
    <message>
        <source>%1 expenses to bill on</source>
        <translation>%1 ख़र्च ग्राहकों को बिल करने हैं</translation>
    </message>
    <message>
        <source>Billable, and on no invoice yet</source>
        <translation>बिल योग्य, पर अभी किसी इनवॉइस में नहीं</translation>
    </message>
    <message>
        <source>1 expense without a receipt</source>
        <translation>1 ख़र्च बिना रसीद के</translation>
    </message>
    <message>
        <source>%1 expenses without a receipt</source>
        <translation>%1 ख़र्च बिना रसीद के</translation>
    </message>
    <message>
        <source>Nothing on file shows what was bought</source>
        <translation>क्या ख़रीदा, इसका कोई काग़ज़ नहीं है</translation>
    </message>
    <message>
        <source>today</source>
        <translation>आज</translation>
    </message>
    <message>
        <source>tomorrow</source>
        <translation>कल</translation>
    </message>
    <message>
        <source>1 problem</source>
        <translation>1 समस्या</translation>
    </message>
    <message>
        <source>1 project</source>
        <translation>1 प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Profit and loss</source>
        <translation>लाभ और हानि</translation>
    </message>
    <message>
        <source>Spending</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Money owed</source>
        <translation>बकाया रक़म</translation>
    </message>
    <message>
        <source>GSTR-1</source>
        <translation>GSTR-1</translation>
    </message>
    <message>
        <source>GSTR-3B</source>
        <translation>GSTR-3B</translation>
    </message>
    <message>
        <source>Composition</source>
        <translation>कंपोज़िशन</translation>
    </message>
    <message>
        <source>TDS</source>
        <translation>TDS</translation>
    </message>
    <message>
        <source>Input tax</source>
        <translation>इनपुट टैक्स</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Year end</source>
        <translation>साल का अंत</translation>
    </message>
    <message>
        <source>Invoice</source>
        <translation>इनवॉइस</translation>
    </message>
    <message>
        <source>Estimate</source>
        <translation>एस्टीमेट</translation>
    </message>
    <message>
        <source>Credit note</source>
        <translation>क्रेडिट नोट</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>ड्राफ़्ट</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>भेजा गया</translation>
    </message>
    <message>
        <source>Part paid</source>
        <translation>आंशिक भुगतान</translation>
    </message>
    <message>
        <source>Declined</source>
        <translation>नामंज़ूर</translation>
    </message>
    <message>
        <source>Converted</source>
        <translation>इनवॉइस बना</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>समाप्त</translation>
    </message>
    <message>
        <source>By invoice date</source>
        <translation>इनवॉइस की तारीख़ से</translation>
    </message>
    <message>
        <source>By payment received</source>
        <translation>भुगतान मिलने से</translation>
    </message>
    <message>
        <source>%1 invoices</source>
        <translation>%1 इनवॉइस</translation>
    </message>
    <message>
        <source>Balance %1</source>
        <translation>शेष %1</translation>
    </message>
    <message>
        <source>Partly matched</source>
        <translation>कुछ मिलाई गई</translation>
    </message>
    <message>
        <source>%1 open</source>
        <translation>%1 बाकी</translation>
    </message>
    <message>
        <source>%1 stays due</source>
        <translation>%1 बाकी रहते हैं</translation>
    </message>
    <message>
        <source>%1 as TDS</source>
        <translation>%1 TDS में</translation>
    </message>
    <message>
        <source>%1 lines</source>
        <translation>%1 पंक्तियाँ</translation>
    </message>
    <message>
        <source>Reference %1</source>
        <translation>संदर्भ %1</translation>
    </message>
    <message>
        <source>Due %1</source>
        <translation>देय %1</translation>
    </message>
    <message>
        <source>Always file %1 under %2</source>
        <translation>%1 हमेशा %2 में रखें</translation>
    </message>
    <message>
        <source>%1 clients</source>
        <translation>%1 ग्राहक</translation>
    </message>
    <message>
        <source>%1 owed</source>
        <translation>%1 बकाया</translation>
    </message>
    <message>
        <source>%1 overdue</source>
        <translation>%1 की देय तारीख़ बीती</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 दिन</translation>
    </message>
    <message>
        <source>%1 late</source>
        <translation>%1 की देर</translation>
    </message>
    <message>
        <source>Valid until %1</source>
        <translation>%1 तक मान्य</translation>
    </message>
    <message>
        <source>For %1</source>
        <translation>%1 के लिए</translation>
    </message>
    <message>
        <source>%1 to refund</source>
        <translation>%1 लौटाने हैं</translation>
    </message>
    <message>
        <source>%1 due</source>
        <translation>%1 बकाया</translation>
    </message>
    <message>
        <source>%1 left out: no rate</source>
        <translation>%1 शामिल नहीं: दर नहीं है</translation>
    </message>
    <message>
        <source>%1 estimates</source>
        <translation>%1 एस्टीमेट</translation>
    </message>
    <message>
        <source>%1 credit notes</source>
        <translation>%1 क्रेडिट नोट</translation>
    </message>
    <message>
        <source>In %1</source>
        <translation>%1 में</translation>
    </message>
    <message>
        <source>Sent on %1</source>
        <translation>%1 को भेजा गया</translation>
    </message>
    <message>
        <source>%1 due since %2, %3 ago</source>
        <translation>%1 बकाया, %2 से, %3 पहले</translation>
    </message>
    <message>
        <source>%1 due by %2</source>
        <translation>%1 बकाया, %2 तक</translation>
    </message>
    <message>
        <source>Was valid until %1</source>
        <translation>%1 तक मान्य था</translation>
    </message>
    <message>
        <source>Credits invoice %1</source>
        <translation>इनवॉइस %1 का क्रेडिट</translation>
    </message>
    <message>
        <source>%1 expenses</source>
        <translation>%1 ख़र्च</translation>
    </message>
    <message>
        <source>FY %1</source>
        <translation>वित्त वर्ष %1</translation>
    </message>
    <message>
        <source>%1 open invoices</source>
        <translation>%1 खुले इनवॉइस</translation>
    </message>
    <message>
        <source>%1 invoices are late</source>
        <translation>%1 इनवॉइस में देर हुई</translation>
    </message>
    <message>
        <source>FY %1, by invoice date, without tax</source>
        <translation>वित्त वर्ष %1, इनवॉइस की तारीख़ से, कर के बिना</translation>
    </message>
    <message>
        <source>%1 spent</source>
        <translation>%1 ख़र्च हुए</translation>
    </message>
    <message>
        <source>%1 records are in no figure: the exchange rate is missing or an amount cannot be right</source>
        <translation>%1 रिकॉर्ड किसी आँकड़े में नहीं हैं: विनिमय दर नहीं है या रक़म सही नहीं हो सकती</translation>
    </message>
    <message>
        <source>%1 reminders</source>
        <translation>%1 बार याद दिलाया</translation>
    </message>
    <message>
        <source>, last on %1</source>
        <translation>, पिछली बार %1</translation>
    </message>
    <message>
        <source>%1 more invoices overdue</source>
        <translation>%1 और इनवॉइस की देय तारीख़ बीती</translation>
    </message>
    <message>
        <source>%1 bank lines to match</source>
        <translation>%1 बैंक पंक्तियाँ मिलानी हैं</translation>
    </message>
    <message>
        <source>For %1 and %2 more</source>
        <translation>%1 और %2 अन्य के लिए</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>%1 में</translation>
    </message>
    <message>
        <source>%1 problems</source>
        <translation>%1 समस्याएँ</translation>
    </message>
    <message>
        <source>%1 projects</source>
        <translation>%1 प्रोजेक्ट</translation>
    </message>
    <message>
        <source>%1 profit</source>
        <translation>%1 लाभ</translation>
    </message>
    <message>
        <source>%1 belongs to no project</source>
        <translation>%1 किसी प्रोजेक्ट के नहीं</translation>
    </message>
    <message>
        <source>1 day early</source>
        <translation>1 दिन पहले</translation>
    </message>
    <message>
        <source>1 day late</source>
        <translation>1 दिन देर से</translation>
    </message>
    <message>
        <source>%1 days early</source>
        <translation>%1 दिन पहले</translation>
    </message>
    <message>
        <source>%1 days late</source>
        <translation>%1 दिन देर से</translation>
    </message>
    <message>
        <source>1 bank line</source>
        <translation>1 बैंक पंक्ति</translation>
    </message>
    <message>
        <source>%1 bank lines</source>
        <translation>%1 बैंक पंक्तियाँ</translation>
    </message>
    <message>
        <source>No records</source>
        <translation>कोई रिकॉर्ड नहीं</translation>
    </message>
    <message>
        <source>%1 fewer</source>
        <translation>%1 कम</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>%1 ज़्यादा</translation>
    </message>
    <message>
        <source>%1 changed</source>
        <translation>%1 बदले हुए</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 और %2</translation>
    </message>
    <message>
        <source>1 recurring expense</source>
        <translation>बार-बार आने वाला 1 ख़र्च</translation>
    </message>
    <message>
        <source>%1 recurring expenses</source>
        <translation>बार-बार आने वाले %1 ख़र्च</translation>
    </message>
    <message>
        <source>1 category</source>
        <translation>1 श्रेणी</translation>
    </message>
    <message>
        <source>%1 categories</source>
        <translation>%1 श्रेणियाँ</translation>
    </message>
    <message>
        <source>1 rule</source>
        <translation>1 नियम</translation>
    </message>
    <message>
        <source>%1 rules</source>
        <translation>%1 नियम</translation>
    </message>
    <message>
        <source>1 item</source>
        <translation>1 आइटम</translation>
    </message>
    <message>
        <source>%1 items</source>
        <translation>%1 आइटम</translation>
    </message>
    <message>
        <source>1 bank account</source>
        <translation>1 बैंक खाता</translation>
    </message>
    <message>
        <source>%1 bank accounts</source>
        <translation>%1 बैंक खाते</translation>
    </message>
    <message>
        <source>1 number series</source>
        <translation>1 नंबर शृंखला</translation>
    </message>
    <message>
        <source>%1 number series</source>
        <translation>%1 नंबर शृंखलाएँ</translation>
    </message>
    <message>
        <source>other settings of the business</source>
        <translation>व्यवसाय की अलग सेटिंग</translation>
    </message>
    <message>
        <source>other exchange rates</source>
        <translation>अलग विनिमय दरें</translation>
    </message>
    <message>
        <source>Expense</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>%1 lost in exchange</source>
        <translation>%1 विनिमय में घटे</translation>
    </message>
    <message>
        <source>%1 of it is still to be matched</source>
        <translation>इसमें से %1 अभी मिलाने बाकी हैं</translation>
    </message>
    <message>
        <source>Is the payment of %1</source>
        <translation>%1 का भुगतान यही है</translation>
    </message>
    <message>
        <source>Recorded by hand, same day</source>
        <translation>हाथ से दर्ज, उसी दिन</translation>
    </message>
    <message>
        <source>Recorded by hand, 1 day apart</source>
        <translation>हाथ से दर्ज, 1 दिन का अंतर</translation>
    </message>
    <message>
        <source>Recorded by hand, %1 days apart</source>
        <translation>हाथ से दर्ज, %1 दिन का अंतर</translation>
    </message>
    <message>
        <source>%1 crore</source>
        <translation>%1 करोड़</translation>
    </message>
    <message>
        <source>%1 lakh</source>
        <translation>%1 लाख</translation>
    </message>
    <message>
        <source>%1 billion</source>
        <translation>%1 अरब</translation>
    </message>
    <message>
        <source>%1 million</source>
        <translation>%1 मिलियन</translation>
    </message>
    <message>
        <source>Draft invoice</source>
        <translation>ड्राफ़्ट इनवॉइस</translation>
    </message>
    <message>
        <source>Draft estimate</source>
        <translation>ड्राफ़्ट एस्टीमेट</translation>
    </message>
    <message>
        <source>Draft credit note</source>
        <translation>ड्राफ़्ट क्रेडिट नोट</translation>
    </message>
    <message>
        <source>1 document left out: no rate</source>
        <translation>1 दस्तावेज़ शामिल नहीं: दर नहीं है</translation>
    </message>
    <message>
        <source>%1 documents left out: no rate</source>
        <translation>%1 दस्तावेज़ शामिल नहीं: दर नहीं है</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>खाता</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>पता</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Anchor day</source>
        <translation>महीने का दिन</translation>
    </message>
    <message>
        <source>Attachments</source>
        <translation>संलग्न फ़ाइलें</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>शेष</translation>
    </message>
    <message>
        <source>Bank</source>
        <translation>बैंक</translation>
    </message>
    <message>
        <source>Bill to</source>
        <translation>किसके नाम बिल</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Category hint</source>
        <translation>श्रेणी का सुझाव</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Contact</source>
        <translation>संपर्क</translation>
    </message>
    <message>
        <source>Contains</source>
        <translation>जिसमें यह पाठ हो</translation>
    </message>
    <message>
        <source>Counterparty</source>
        <translation>दूसरा पक्ष</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>देश</translation>
    </message>
    <message>
        <source>Created at</source>
        <translation>कब बनाया</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>मुद्रा</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Default due days</source>
        <translation>सामान्य देय अवधि (दिन)</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>ब्योरा</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>दूरी</translation>
    </message>
    <message>
        <source>Distance unit</source>
        <translation>दूरी की इकाई</translation>
    </message>
    <message>
        <source>Due date</source>
        <translation>देय तारीख़</translation>
    </message>
    <message>
        <source>Due days</source>
        <translation>देय अवधि (दिन)</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>ई-मेल</translation>
    </message>
    <message>
        <source>End date</source>
        <translation>आख़िरी तारीख़</translation>
    </message>
    <message>
        <source>Footer</source>
        <translation>पाद लेख</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>कितनी बार</translation>
    </message>
    <message>
        <source>Home currency</source>
        <translation>घरेलू मुद्रा</translation>
    </message>
    <message>
        <source>Ignored</source>
        <translation>अलग रखी</translation>
    </message>
    <message>
        <source>Issue date</source>
        <translation>जारी होने की तारीख़</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>प्रकार</translation>
    </message>
    <message>
        <source>Last reminder</source>
        <translation>पिछली बार याद दिलाया</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>पंक्तियाँ</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>तरीका</translation>
    </message>
    <message>
        <source>Mileage rate</source>
        <translation>यात्रा की दर</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>अगली गिनती</translation>
    </message>
    <message>
        <source>Next date</source>
        <translation>अगली तारीख़</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>नंबर</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>नमूना</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>रुका हुआ</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Payments</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Place of supply</source>
        <translation>आपूर्ति का स्थान</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>दर</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>दर</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>कारण</translation>
    </message>
    <message>
        <source>Rebilled invoice</source>
        <translation>जिस इनवॉइस में बिल हुआ</translation>
    </message>
    <message>
        <source>Receipt date order</source>
        <translation>रसीदों पर तारीख़ का क्रम</translation>
    </message>
    <message>
        <source>Recurring</source>
        <translation>बार-बार आने वाला</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>संदर्भ</translation>
    </message>
    <message>
        <source>Regime</source>
        <translation>कर व्यवस्था</translation>
    </message>
    <message>
        <source>Reminders sent</source>
        <translation>कितनी बार याद दिलाया</translation>
    </message>
    <message>
        <source>Round off</source>
        <translation>राउंड-ऑफ़</translation>
    </message>
    <message>
        <source>Round totals</source>
        <translation>कुल को पूर्ण करें</translation>
    </message>
    <message>
        <source>Seller</source>
        <translation>विक्रेता का ब्योरा</translation>
    </message>
    <message>
        <source>Sent on</source>
        <translation>भेजने की तारीख़</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>नंबर शृंखला</translation>
    </message>
    <message>
        <source>Signatory</source>
        <translation>हस्ताक्षर</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>स्रोत</translation>
    </message>
    <message>
        <source>State</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>State code</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>Supply</source>
        <translation>आपूर्ति</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>चिह्न</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>Tax name</source>
        <translation>कर का नाम</translation>
    </message>
    <message>
        <source>Tax split</source>
        <translation>कर के हिस्से</translation>
    </message>
    <message>
        <source>Template</source>
        <translation>नमूना</translation>
    </message>
    <message>
        <source>Terms</source>
        <translation>शर्तें</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>पाठ</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>इकाई</translation>
    </message>
    <message>
        <source>Updated</source>
        <translation>कब बदली</translation>
    </message>
    <message>
        <source>Vendor</source>
        <translation>विक्रेता</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>वेबसाइट</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>हर हफ़्ते</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>हर महीने</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>हर तिमाही</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>हर साल</translation>
    </message>
    <message>
        <source>Issued</source>
        <translation>जारी</translation>
    </message>
    <message>
        <source>Regular</source>
        <translation>सामान्य</translation>
    </message>
    <message>
        <source>Recurring expense</source>
        <translation>बार-बार आने वाला ख़र्च</translation>
    </message>
    <message>
        <source>Bank line</source>
        <translation>बैंक पंक्ति</translation>
    </message>
    <message>
        <source>Rule</source>
        <translation>नियम</translation>
    </message>
    <message>
        <source>Exchange rate</source>
        <translation>विनिमय दर</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>आइटम</translation>
    </message>
    <message>
        <source>Number series</source>
        <translation>नंबर शृंखला</translation>
    </message>
    <message>
        <source>Bank account</source>
        <translation>बैंक खाता</translation>
    </message>
    <message>
        <source>Another record</source>
        <translation>कोई और रिकॉर्ड</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>हाँ</translation>
    </message>
    <message>
        <source>No</source>
        <translation>नहीं</translation>
    </message>
    <message>
        <source>Another value</source>
        <translation>कोई और मान</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>हटाया गया</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>बदला गया</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>कुछ नहीं</translation>
    </message>
    <message>
        <source>The whole record</source>
        <translation>पूरा रिकॉर्ड</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>सेटिंग</translation>
    </message>
    <message>
        <source>Accent colour</source>
        <translation>मुख्य रंग</translation>
    </message>
    <message>
        <source>Input tax claimed</source>
        <translation>इनपुट टैक्स लिया</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>रंग</translation>
    </message>
    <message>
        <source>Tax on new lines</source>
        <translation>नई पंक्तियों पर कर</translation>
    </message>
    <message>
        <source>Year begins in</source>
        <translation>साल की शुरुआत</translation>
    </message>
    <message>
        <source>HSN or SAC</source>
        <translation>HSN या SAC</translation>
    </message>
    <message>
        <source>Linked document</source>
        <translation>जुड़ा हुआ दस्तावेज़</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>लोगो</translation>
    </message>
    <message>
        <source>Under LUT</source>
        <translation>LUT के तहत</translation>
    </message>
    <message>
        <source>LUT reference</source>
        <translation>LUT संदर्भ</translation>
    </message>
    <message>
        <source>Text of the receipt</source>
        <translation>रसीद का पाठ</translation>
    </message>
    <message>
        <source>PAN</source>
        <translation>PAN</translation>
    </message>
    <message>
        <source>In a special economic zone</source>
        <translation>विशेष आर्थिक क्षेत्र में</translation>
    </message>
    <message>
        <source>UPI code on invoices</source>
        <translation>इनवॉइस पर UPI कोड</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>कर संख्या</translation>
    </message>
    <message>
        <source>Name of the number</source>
        <translation>संख्या का नाम</translation>
    </message>
    <message>
        <source>UPI ID</source>
        <translation>UPI ID</translation>
    </message>
    <message>
        <source>Vendor’s GSTIN</source>
        <translation>विक्रेता का GSTIN</translation>
    </message>
    <message>
        <source>One reminder, on %2</source>
        <translation>एक बार याद दिलाया, %2 को</translation>
    </message>
    <message>
        <source>%1 reminders, the last on %2</source>
        <translation>%1 बार याद दिलाया, पिछली बार %2 को</translation>
    </message>
    <message>
        <source>One reminder</source>
        <translation>एक बार याद दिलाया</translation>
    </message>
    <message>
        <source>Void: %1</source>
        <translation>निरस्त: %1</translation>
    </message>
    <message>
        <source>Reason: %1</source>
        <translation>कारण: %1</translation>
    </message>
    <message>
        <source>Other tax</source>
        <translation>अन्य कर</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>काम में नहीं</translation>
    </message>
    <message>
        <source>Narration</source>
        <translation>विवरण</translation>
    </message>
    <message>
        <source>Money out</source>
        <translation>निकासी</translation>
    </message>
    <message>
        <source>Money in</source>
        <translation>जमा</translation>
    </message>
    <message>
        <source>In or out</source>
        <translation>जमा या निकासी</translation>
    </message>
    <message>
        <source>Payee</source>
        <translation>पाने वाला</translation>
    </message>
    <message>
        <source>More narration</source>
        <translation>और विवरण</translation>
    </message>
    <message>
        <source>Balance in or out</source>
        <translation>शेष जमा या नामे</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Opening %1 + lines %2 = closing %3</source>
        <translation>आरंभिक शेष %1 + पंक्तियाँ %2 = अंतिम शेष %3</translation>
    </message>
    <message>
        <source>Opening %1 + lines %2 = %3, but the statement closes with %4: %5 apart</source>
        <translation>आरंभिक शेष %1 + पंक्तियाँ %2 = %3, पर स्टेटमेंट का अंतिम शेष %4 है: %5 का अंतर</translation>
    </message>
    <message>
        <source>Opening %1 + lines %2 = %3, but the statement closes with %4</source>
        <translation>आरंभिक शेष %1 + पंक्तियाँ %2 = %3, पर स्टेटमेंट का अंतिम शेष %4 है</translation>
    </message>
    <message>
        <source>The same as row %1 of this file</source>
        <translation>इसी फ़ाइल की पंक्ति %1 जैसी</translation>
    </message>
    <message>
        <source>The balance should be %1 and is %2.</source>
        <translation>शेष %1 होना चाहिए, पर %2 है।</translation>
    </message>
    <message>
        <source>%1 already in the books</source>
        <translation>%1 पहले से बहीखाते में</translation>
    </message>
    <message>
        <source>1 row skipped</source>
        <translation>1 पंक्ति छोड़ी गई</translation>
    </message>
    <message>
        <source>%1 rows skipped</source>
        <translation>%1 पंक्तियाँ छोड़ी गईं</translation>
    </message>
    <message>
        <source>1 line added to %2</source>
        <translation>%2 में 1 पंक्ति जोड़ी गई</translation>
    </message>
    <message>
        <source>%1 lines added to %2</source>
        <translation>%2 में %1 पंक्तियाँ जोड़ी गईं</translation>
    </message>
    <message>
        <source>1 was already in the books</source>
        <translation>1 पहले से बहीखाते में थी</translation>
    </message>
    <message>
        <source>%1 were already in the books</source>
        <translation>%1 पहले से बहीखाते में थीं</translation>
    </message>
    <message>
        <source>paid %1</source>
        <translation>भुगतान %1</translation>
    </message>
    <message>
        <source>%1 payments</source>
        <translation>%1 भुगतान</translation>
    </message>
    <message>
        <source>Uncategorised</source>
        <translation>बिना श्रेणी</translation>
    </message>
    <message>
        <source>1 document</source>
        <translation>1 दस्तावेज़</translation>
    </message>
    <message>
        <source>%1 documents</source>
        <translation>%1 दस्तावेज़</translation>
    </message>
    <message>
        <source>These figures are for preparation. Check every one of them on the portal before you file.</source>
        <translation>ये आँकड़े तैयारी के लिए हैं। रिटर्न भरने से पहले हर आँकड़ा पोर्टल पर जाँच लें।</translation>
    </message>
    <message>
        <source>1 record is left out: without an exchange rate, or with a figure that can’t be right.</source>
        <translation>1 रिकॉर्ड शामिल नहीं है: विनिमय दर नहीं है, या कोई आँकड़ा सही नहीं हो सकता।</translation>
    </message>
    <message>
        <source>%1 records are left out: without an exchange rate, or with a figure that can’t be right.</source>
        <translation>%1 रिकॉर्ड शामिल नहीं हैं: विनिमय दर नहीं है, या कोई आँकड़ा सही नहीं हो सकता।</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>शामिल नहीं</translation>
    </message>
    <message>
        <source>Worth a look</source>
        <translation>देख लेने लायक़</translation>
    </message>
    <message>
        <source>1 expense with claimed tax, but no valid GSTIN of the vendor: that is no credit.</source>
        <translation>1 ख़र्च में कर का क्रेडिट लिया गया, पर विक्रेता का सही GSTIN नहीं है: यह क्रेडिट नहीं मिलता।</translation>
    </message>
    <message>
        <source>%1 expenses with claimed tax, but no valid GSTIN of the vendor: that is no credit.</source>
        <translation>%1 ख़र्चों में कर का क्रेडिट लिया गया, पर विक्रेता का सही GSTIN नहीं है: यह क्रेडिट नहीं मिलता।</translation>
    </message>
    <message>
        <source>1 expense with CGST and SGST of another state: that credit is lost.</source>
        <translation>1 ख़र्च में दूसरे राज्य का CGST और SGST है: यह क्रेडिट नहीं मिलता।</translation>
    </message>
    <message>
        <source>%1 expenses with CGST and SGST of another state: that credit is lost.</source>
        <translation>%1 ख़र्चों में दूसरे राज्य का CGST और SGST है: यह क्रेडिट नहीं मिलता।</translation>
    </message>
    <message>
        <source>1 expense in foreign currency: a service from abroad is taxed under reverse charge.</source>
        <translation>1 ख़र्च विदेशी मुद्रा में है: विदेश से ली गई सेवा पर रिवर्स चार्ज में कर लगता है।</translation>
    </message>
    <message>
        <source>%1 expenses in foreign currency: a service from abroad is taxed under reverse charge.</source>
        <translation>%1 ख़र्च विदेशी मुद्रा में हैं: विदेश से ली गई सेवा पर रिवर्स चार्ज में कर लगता है।</translation>
    </message>
    <message>
        <source>1 document goes out of your state, which the scheme does not allow.</source>
        <translation>1 दस्तावेज़ आपके राज्य से बाहर का है, जिसकी इस योजना में अनुमति नहीं है।</translation>
    </message>
    <message>
        <source>%1 documents go out of your state, which the scheme does not allow.</source>
        <translation>%1 दस्तावेज़ आपके राज्य से बाहर के हैं, जिसकी इस योजना में अनुमति नहीं है।</translation>
    </message>
    <message>
        <source>Out of your state</source>
        <translation>आपके राज्य से बाहर</translation>
    </message>
    <message>
        <source>Compare these with your clients’ certificates (Form 16A, from April 2026 Form 131) and with the tax department’s statement (Form 26AS, now Form 168).</source>
        <translation>इन्हें अपने ग्राहकों के प्रमाणपत्रों (फ़ॉर्म 16A, अप्रैल 2026 से फ़ॉर्म 131) और आयकर विभाग के विवरण (फ़ॉर्म 26AS, अब फ़ॉर्म 168) से मिला लें।</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>आय</translation>
    </message>
    <message>
        <source>1 document is still a draft, so no figure has it.</source>
        <translation>1 दस्तावेज़ अभी ड्राफ़्ट है, इसलिए किसी आँकड़े में नहीं है।</translation>
    </message>
    <message>
        <source>%1 documents are still drafts, so no figure has them.</source>
        <translation>%1 दस्तावेज़ अभी ड्राफ़्ट हैं, इसलिए किसी आँकड़े में नहीं हैं।</translation>
    </message>
    <message>
        <source>1 expense was read from a receipt that nobody has checked yet.</source>
        <translation>1 ख़र्च रसीद से पढ़ा गया, जिसे अभी किसी ने नहीं जाँचा।</translation>
    </message>
    <message>
        <source>%1 expenses were read from receipts that nobody has checked yet.</source>
        <translation>%1 ख़र्च रसीदों से पढ़े गए, जिन्हें अभी किसी ने नहीं जाँचा।</translation>
    </message>
    <message>
        <source>1 expense has no category.</source>
        <translation>1 ख़र्च की कोई श्रेणी नहीं है।</translation>
    </message>
    <message>
        <source>%1 expenses have no category.</source>
        <translation>%1 ख़र्चों की कोई श्रेणी नहीं है।</translation>
    </message>
    <message>
        <source>1 expense has no receipt.</source>
        <translation>1 ख़र्च की रसीद नहीं है।</translation>
    </message>
    <message>
        <source>%1 expenses have no receipt.</source>
        <translation>%1 ख़र्चों की रसीद नहीं है।</translation>
    </message>
    <message>
        <source>1 bank line is not matched yet.</source>
        <translation>1 बैंक पंक्ति अभी मिलाई नहीं गई।</translation>
    </message>
    <message>
        <source>%1 bank lines are not matched yet.</source>
        <translation>%1 बैंक पंक्तियाँ अभी मिलाई नहीं गईं।</translation>
    </message>
    <message>
        <source>Show all %1 expenses</source>
        <translation>सभी %1 ख़र्च दिखाएँ</translation>
    </message>
    <message>
        <source>Show all %1 invoices</source>
        <translation>सभी %1 इनवॉइस दिखाएँ</translation>
    </message>
    <message>
        <source>Show all %1 estimates</source>
        <translation>सभी %1 एस्टीमेट दिखाएँ</translation>
    </message>
    <message>
        <source>Show all %1 credit notes</source>
        <translation>सभी %1 क्रेडिट नोट दिखाएँ</translation>
    </message>
    <message>
        <source>Show all %1 clients</source>
        <translation>सभी %1 ग्राहक दिखाएँ</translation>
    </message>
    <message>
        <source>Show all %1 projects</source>
        <translation>सभी %1 प्रोजेक्ट दिखाएँ</translation>
    </message>
    <message>
        <source>Saved lines</source>
        <translation>सहेजे हुए आइटम</translation>
    </message>
    <message>
        <source>Show all %1 saved lines</source>
        <translation>सभी %1 सहेजे हुए आइटम दिखाएँ</translation>
    </message>
    <message>
        <source>Bank lines</source>
        <translation>बैंक पंक्तियाँ</translation>
    </message>
    <message>
        <source>Show all %1 bank lines</source>
        <translation>सभी %1 बैंक पंक्तियाँ दिखाएँ</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>काम</translation>
    </message>
    <message>
        <source>Leave empty while you are not registered.</source>
        <translation>पंजीकरण न हुआ हो तो ख़ाली छोड़ें।</translation>
    </message>
    <message>
        <source>The first: %1</source>
        <translation>पहला: %1</translation>
    </message>
    <message>
        <source>Friendly</source>
        <translation>नरम</translation>
    </message>
    <message>
        <source>Firm</source>
        <translation>सख़्त</translation>
    </message>
    <message>
        <source>Final</source>
        <translation>अंतिम</translation>
    </message>
    <message>
        <source>GST (India, regular)</source>
        <translation>GST (भारत, सामान्य)</translation>
    </message>
    <message>
        <source>GST (India, composition scheme)</source>
        <translation>GST (भारत, कंपोज़िशन योजना)</translation>
    </message>
    <message>
        <source>VAT / sales tax</source>
        <translation>VAT / बिक्री कर</translation>
    </message>
    <message>
        <source>Not registered for tax</source>
        <translation>कर के लिए पंजीकृत नहीं</translation>
    </message>
    <message>
        <source>Within the state (CGST + SGST)</source>
        <translation>राज्य के भीतर (CGST + SGST)</translation>
    </message>
    <message>
        <source>Between states (IGST)</source>
        <translation>राज्यों के बीच (IGST)</translation>
    </message>
    <message>
        <source>Export under LUT (no IGST)</source>
        <translation>LUT के तहत निर्यात (IGST नहीं)</translation>
    </message>
    <message>
        <source>Export with IGST paid</source>
        <translation>IGST चुकाकर निर्यात</translation>
    </message>
    <message>
        <source>SEZ unit under LUT (no IGST)</source>
        <translation>LUT के तहत SEZ इकाई (IGST नहीं)</translation>
    </message>
    <message>
        <source>SEZ unit with IGST</source>
        <translation>IGST सहित SEZ इकाई</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>सामान्य</translation>
    </message>
    <message>
        <source>No tax charged</source>
        <translation>कोई कर नहीं लगाया</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>कोई ग्राहक नहीं</translation>
    </message>
    <message>
        <source>GSTR-1 for %1</source>
        <translation>%1 का GSTR-1</translation>
    </message>
    <message>
        <source>GSTR-3B for %1</source>
        <translation>%1 का GSTR-3B</translation>
    </message>
    <message>
        <source>CMP-08 for %1</source>
        <translation>%1 का CMP-08</translation>
    </message>
    <message>
        <source>GSTR-4 for %1</source>
        <translation>%1 का GSTR-4</translation>
    </message>
    <message>
        <source>Advance tax for %1, up to %2 %</source>
        <translation>%1 का अग्रिम कर, %2 % तक</translation>
    </message>
    <message>
        <source>Letter of undertaking for %1</source>
        <translation>%1 का LUT (वचन पत्र)</translation>
    </message>
    <message>
        <source>Where quarterly returns were chosen (QRMP), due on the 13th after the quarter.</source>
        <translation>जहाँ तिमाही रिटर्न (QRMP) चुना गया हो, वहाँ तिमाही के बाद की 13 तारीख़ तक।</translation>
    </message>
    <message>
        <source>With this month’s input tax by the books; compare it with GSTR-2B.</source>
        <translation>बहीखाते के अनुसार इस महीने के इनपुट टैक्स के साथ; इसे GSTR-2B से मिला लें।</translation>
    </message>
    <message>
        <source>At the 6 % of services; restaurants pay 5 %, traders and makers of goods 1 %.</source>
        <translation>सेवाओं की 6 % दर पर; रेस्तराँ 5 %, और माल के व्यापारी व निर्माता 1 % देते हैं।</translation>
    </message>
    <message>
        <source>The year’s tax was paid with CMP-08.</source>
        <translation>साल का कर CMP-08 के साथ चुकाया जा चुका है।</translation>
    </message>
    <message>
        <source>Presumptive income: the whole tax at once. None below ₹10,000 after TDS.</source>
        <translation>अनुमानित आय पर: पूरा कर एक साथ। TDS के बाद ₹10,000 से कम हो तो कुछ नहीं।</translation>
    </message>
    <message>
        <source>Presumptive income: only on 15 March. None below ₹10,000 after TDS.</source>
        <translation>अनुमानित आय पर: केवल 15 मार्च को। TDS के बाद ₹10,000 से कम हो तो कुछ नहीं।</translation>
    </message>
    <message>
        <source>Form RFD-11, before the year’s first export or supply to an SEZ without tax.</source>
        <translation>फ़ॉर्म RFD-11, साल के पहले निर्यात या SEZ को बिना कर की पहली आपूर्ति से पहले।</translation>
    </message>
    <message>
        <source>%1 so far</source>
        <translation>अब तक %1</translation>
    </message>
    <message>
        <source>Nil return</source>
        <translation>शून्य रिटर्न</translation>
    </message>
    <message>
        <source>nothing to pay</source>
        <translation>कुछ नहीं देना</translation>
    </message>
    <message>
        <source>1 invoice this year under %1</source>
        <translation>इस साल 1 इनवॉइस, %1 के तहत</translation>
    </message>
    <message>
        <source>%1 invoices this year under %2</source>
        <translation>इस साल %1 इनवॉइस, %2 के तहत</translation>
    </message>
    <message>
        <source>a letter without its number in Settings</source>
        <translation>ऐसा LUT जिसका नंबर सेटिंग में नहीं है</translation>
    </message>
    <message>
        <source>same amount</source>
        <translation>रक़म वही</translation>
    </message>
    <message>
        <source>amount within 1%</source>
        <translation>रक़म में 1% से कम अंतर</translation>
    </message>
    <message>
        <source>same day</source>
        <translation>उसी दिन</translation>
    </message>
    <message>
        <source>1 day apart</source>
        <translation>1 दिन का अंतर</translation>
    </message>
    <message>
        <source>%1 days apart</source>
        <translation>%1 दिन का अंतर</translation>
    </message>
    <message>
        <source>mentions %1</source>
        <translation>%1 का ज़िक्र</translation>
    </message>
    <message>
        <source>pays the balance</source>
        <translation>बकाया के बराबर</translation>
    </message>
    <message>
        <source>part payment</source>
        <translation>आंशिक भुगतान</translation>
    </message>
    <message>
        <source>close to the balance (TDS?)</source>
        <translation>बकाया के क़रीब (TDS?)</translation>
    </message>
    <message>
        <source>same as invoice total</source>
        <translation>इनवॉइस के कुल के बराबर</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>%1 से</translation>
    </message>
    <message>
        <source>%1 more than at the rate of %2: an exchange gain.</source>
        <translation>%2 की दर से %1 ज़्यादा: विनिमय लाभ।</translation>
    </message>
    <message>
        <source>%1 less than at the rate of %2: an exchange loss.</source>
        <translation>%2 की दर से %1 कम: विनिमय हानि।</translation>
    </message>
    <message>
        <source>Income is the taxable value of invoices issued in each month, less credit notes. Expenses count net of tax you reclaim.</source>
        <translation>आय हर महीने जारी इनवॉइस का कर योग्य मूल्य है, क्रेडिट नोट घटाकर। ख़र्च में से वह कर घटा है जिसका क्रेडिट आप लेते हैं।</translation>
    </message>
    <message>
        <source>Income is the taxable share of payments received (TDS included) in each month.</source>
        <translation>आय हर महीने मिले भुगतानों (TDS सहित) का कर योग्य हिस्सा है।</translation>
    </message>
    <message>
        <source>Taxable value of the invoices dated in this time. Credit notes are not taken off.</source>
        <translation>इस अवधि की तारीख़ वाले इनवॉइस का कर योग्य मूल्य। क्रेडिट नोट नहीं घटाए गए।</translation>
    </message>
    <message>
        <source>%1 more than invoiced has come in or was credited. It is not taken off here.</source>
        <translation>इनवॉइस से %1 ज़्यादा मिला है या क्रेडिट हुआ है। यहाँ उसे घटाया नहीं गया।</translation>
    </message>
    <message>
        <source>Compare with the certificates (Form 16A, from April 2026 Form 131). A client may have booked the tax at the date of the invoice, in another quarter or year.</source>
        <translation>प्रमाणपत्रों (फ़ॉर्म 16A, अप्रैल 2026 से फ़ॉर्म 131) से मिला लें। हो सकता है ग्राहक ने कर इनवॉइस की तारीख़ पर, किसी और तिमाही या साल में दर्ज किया हो।</translation>
    </message>
    <message>
        <source>Income by invoice date. A line that bills an expense counts for the expense’s project, any other for its client’s project where the client has just one.</source>
        <translation>आय इनवॉइस की तारीख़ से। जो पंक्ति कोई ख़र्च बिल करती है, वह उस ख़र्च के प्रोजेक्ट में गिनी जाती है; बाकी पंक्तियाँ ग्राहक के प्रोजेक्ट में, जब उसका एक ही प्रोजेक्ट हो।</translation>
    </message>
    <message>
        <source>Credit counts only where the vendor’s invoice is in GSTR-2B.</source>
        <translation>क्रेडिट तभी मिलता है जब विक्रेता का इनवॉइस GSTR-2B में हो।</translation>
    </message>
    <message>
        <source>%1 of tax on expenses is not claimed.</source>
        <translation>ख़र्चों पर %1 कर का क्रेडिट नहीं लिया गया।</translation>
    </message>
    <message>
        <source>With the credit of this period alone: what was left of earlier ones is not in the books.</source>
        <translation>केवल इस अवधि के क्रेडिट से: पहले की अवधियों का बचा क्रेडिट बहीखाते में नहीं है।</translation>
    </message>
    <message>
        <source>On %1</source>
        <translation>%1 को</translation>
    </message>
    <message>
        <source>Tax year %1, by the day of payment</source>
        <translation>कर वर्ष %1, भुगतान के दिन से</translation>
    </message>
    <message>
        <source>Tax year %1</source>
        <translation>कर वर्ष %1</translation>
    </message>
    <message>
        <source>An invoice of %1</source>
        <translation>%1 का एक इनवॉइस</translation>
    </message>
    <message>
        <source>A credit note of %1</source>
        <translation>%1 का एक क्रेडिट नोट</translation>
    </message>
    <message>
        <source>%1 is still a draft. Only what is issued counts.</source>
        <translation>%1: अभी ड्राफ़्ट है। केवल जारी दस्तावेज़ गिने जाते हैं।</translation>
    </message>
    <message>
        <source>This return is for businesses under the regular GST regime.</source>
        <translation>यह रिटर्न सामान्य GST व्यवस्था वाले व्यवसायों के लिए है।</translation>
    </message>
    <message>
        <source>Your business details have no GSTIN.</source>
        <translation>आपके व्यवसाय के ब्योरे में GSTIN नहीं है।</translation>
    </message>
    <message>
        <source>Your own GSTIN is wrong. %1</source>
        <translation>आपका अपना GSTIN ग़लत है। %1</translation>
    </message>
    <message>
        <source>The return is in rupees, and the home currency of these books is %1.</source>
        <translation>रिटर्न रुपये में है, और इस बहीखाते की घरेलू मुद्रा %1 है।</translation>
    </message>
    <message>
        <source>%1 has no number.</source>
        <translation>%1: नंबर नहीं है।</translation>
    </message>
    <message>
        <source>%1 has a number the portal refuses: at most 16 letters, digits, “-” and “/”, and not only zeros.</source>
        <translation>%1: यह नंबर पोर्टल नहीं लेगा: ज़्यादा से ज़्यादा 16 अक्षर, अंक, “-” और “/”, और केवल शून्य नहीं।</translation>
    </message>
    <message>
        <source>%1 has the number of another document; capitals make no difference.</source>
        <translation>%1: यही नंबर किसी और दस्तावेज़ का है; बड़े-छोटे अक्षरों से फ़र्क़ नहीं पड़ता।</translation>
    </message>
    <message>
        <source>%1 is dated before GST began.</source>
        <translation>%1: तारीख़ GST शुरू होने से पहले की है।</translation>
    </message>
    <message>
        <source>%1 is no supply under GST, so it is not in this return.</source>
        <translation>%1: GST के तहत आपूर्ति नहीं है, इसलिए इस रिटर्न में नहीं है।</translation>
    </message>
    <message>
        <source>%1 is to an SEZ without a valid GSTIN of the buyer, so it is left out.</source>
        <translation>%1: SEZ के लिए है पर ख़रीदार का सही GSTIN नहीं है, इसलिए शामिल नहीं है।</translation>
    </message>
    <message>
        <source>%1 comes to nothing, so no table holds it.</source>
        <translation>%1: कुल शून्य है, इसलिए किसी तालिका में नहीं है।</translation>
    </message>
    <message>
        <source>%1 has no exchange rate, so it is left out.</source>
        <translation>%1: विनिमय दर नहीं है, इसलिए शामिल नहीं है।</translation>
    </message>
    <message>
        <source>%1 has a figure that is too large to be right, so it is left out.</source>
        <translation>%1: कोई आँकड़ा इतना बड़ा है कि सही नहीं हो सकता, इसलिए शामिल नहीं है।</translation>
    </message>
    <message>
        <source>%1 has “%2” as the client’s GSTIN, which is not valid. It is reported as a sale to a consumer, and the client gets no credit.</source>
        <translation>%1: ग्राहक का GSTIN “%2” सही नहीं है। यह उपभोक्ता को बिक्री के रूप में जाएगा, और ग्राहक को क्रेडिट नहीं मिलेगा।</translation>
    </message>
    <message>
        <source>%1 has no place of supply.</source>
        <translation>%1: आपूर्ति का स्थान नहीं है।</translation>
    </message>
    <message>
        <source>%1 charges CGST and SGST, but its place of supply is another state.</source>
        <translation>%1: CGST और SGST लगाया है, पर आपूर्ति का स्थान दूसरा राज्य है।</translation>
    </message>
    <message>
        <source>%1 charges IGST, but its place of supply is your own state.</source>
        <translation>%1: IGST लगाया है, पर आपूर्ति का स्थान आपका अपना राज्य है।</translation>
    </message>
    <message>
        <source>%1 has lines at %2, a rate the portal doesn’t know.</source>
        <translation>%1: कुछ पंक्तियों की दर %2 है, जिसे पोर्टल नहीं जानता।</translation>
    </message>
    <message>
        <source>%1 adds up its tax at %2 line by line, which differs by %3 from the tax on their sum. The portal has refused such differences.</source>
        <translation>%1: %2 पर कर हर पंक्ति का जोड़ा गया है, जो कुल पर लगे कर से %3 अलग है। पोर्टल ऐसे अंतर ठुकरा चुका है।</translation>
    </message>
    <message>
        <source>%1 has lines without an HSN or SAC code.</source>
        <translation>%1: कुछ पंक्तियों में HSN या SAC कोड नहीं है।</translation>
    </message>
    <message>
        <source>%1 has the HSN or SAC code “%2”, which the portal refuses: %3 to 8 digits, and 4 or 6 for services.</source>
        <translation>%1: HSN या SAC कोड “%2” पोर्टल नहीं लेगा: %3 से 8 अंक, और सेवाओं के लिए 4 या 6।</translation>
    </message>
    <message>
        <source>%1 came after %2, when the tax of %3 could last be reduced.</source>
        <translation>%1: %2 के बाद का है, जो %3 का कर घटाने की आख़िरी तारीख़ थी।</translation>
    </message>
    <message>
        <source>1 number between %1 and %2 belongs to no document of this period.</source>
        <translation>%1 और %2 के बीच 1 नंबर इस अवधि के किसी दस्तावेज़ का नहीं है।</translation>
    </message>
    <message>
        <source>%1 numbers between %2 and %3 belong to no document of this period.</source>
        <translation>%2 और %3 के बीच के %1 नंबर इस अवधि के किसी दस्तावेज़ के नहीं हैं।</translation>
    </message>
    <message>
        <source>Every date in this file can be read in one way only.</source>
        <translation>इस फ़ाइल की हर तारीख़ एक ही तरह से पढ़ी जा सकती है।</translation>
    </message>
    <message>
        <source>Dates were read as %1: %2 of them are no days when read as %3.</source>
        <translation>तारीख़ें %1 के क्रम में पढ़ी गईं: %3 के क्रम में इनमें से %2 तारीख़ें होतीं ही नहीं।</translation>
    </message>
    <message>
        <source>Dates were read as %1.</source>
        <translation>तारीख़ें %1 के क्रम में पढ़ी गईं।</translation>
    </message>
    <message>
        <source>The dates may be meant as %1: then all are days, run in one direction and lie close together.</source>
        <translation>शायद तारीख़ें %1 के क्रम में हों: तब सभी सही तारीख़ें हैं, एक ही दिशा में चलती हैं और पास-पास हैं।</translation>
    </message>
    <message>
        <source>day, month, year</source>
        <translation>दिन, महीना, साल</translation>
    </message>
    <message>
        <source>month, day, year</source>
        <translation>महीना, दिन, साल</translation>
    </message>
    <message>
        <source>year, month, day</source>
        <translation>साल, महीना, दिन</translation>
    </message>
    <message>
        <source>Day and month may be swapped in some dates: those with days up to the 12th are written in another way than the later ones, as after a pass through a spreadsheet program of another country.</source>
        <translation>कुछ तारीख़ों में दिन और महीना आपस में बदले हो सकते हैं: 12 तक के दिनों वाली तारीख़ें बाकी से अलग ढंग से लिखी हैं, जैसा दूसरे देश के स्प्रेडशीट प्रोग्राम से गुज़रने पर होता है।</translation>
    </message>
    <message>
        <source>Nothing in this file says which way the money went: all amounts were read as money in.</source>
        <translation>इस फ़ाइल में कहीं नहीं लिखा कि पैसा आया या गया: सारी रक़में जमा के रूप में पढ़ी गईं।</translation>
    </message>
    <message>
        <source>This looks like a card whose charges are printed as positive amounts: the signs may have to be turned.</source>
        <translation>यह ऐसा कार्ड लगता है जिसके ख़र्च धनात्मक रक़म के रूप में छपे हैं: शायद चिह्न उलटने हों।</translation>
    </message>
    <message>
        <source>Some amounts are negative but marked as money in; the sign was taken, not the mark.</source>
        <translation>कुछ रक़में ऋणात्मक हैं पर उन पर जमा लिखा है; चिह्न माना गया, लिखा हुआ नहीं।</translation>
    </message>
    <message>
        <source>The column “%1” holds amounts too, which were not read.</source>
        <translation>कॉलम “%1” में भी रक़में हैं, जो पढ़ी नहीं गईं।</translation>
    </message>
    <message>
        <source>Two columns could say which way the money went; “%1”, column %2, was taken.</source>
        <translation>दो कॉलम बता सकते थे कि पैसा आया या गया; “%1”, कॉलम %2, माना गया।</translation>
    </message>
    <message>
        <source>Updates are off: this copy was built without a place to get them from.</source>
        <translation>अपडेट बंद हैं: यह प्रति ऐसी बनी है कि उसे अपडेट लाने की जगह नहीं बताई गई।</translation>
    </message>
    <message>
        <source>Looking for updates…</source>
        <translation>अपडेट देखे जा रहे हैं…</translation>
    </message>
    <message>
        <source>Fetching %1…</source>
        <translation>%1 लाया जा रहा है…</translation>
    </message>
    <message>
        <source>%1 is ready. It is installed when you quit.</source>
        <translation>%1 तैयार है। बंद करते समय लगाया जाएगा।</translation>
    </message>
    <message>
        <source>%1 is available. It comes with the updates of your system.</source>
        <translation>%1 उपलब्ध है। यह आपके सिस्टम के अपडेट के साथ आता है।</translation>
    </message>
    <message>
        <source>%1 is available, but not for this kind of computer.</source>
        <translation>%1 उपलब्ध है, पर इस तरह के कंप्यूटर के लिए नहीं।</translation>
    </message>
    <message>
        <source>%1 is available.</source>
        <translation>%1 उपलब्ध है।</translation>
    </message>
    <message>
        <source>%1 is the latest version.</source>
        <translation>%1 सबसे नया संस्करण है।</translation>
    </message>
    <message>
        <source>%1 is installed; it is there when the program starts again.</source>
        <translation>%1 लगा दिया गया है; प्रोग्राम फिर शुरू होने पर वही चलेगा।</translation>
    </message>
    <message>
        <source>%1 didn’t start on this computer, so %2 stays in use until a later version is out.</source>
        <translation>%1 इस कंप्यूटर पर शुरू नहीं हुआ, इसलिए आगे का संस्करण आने तक %2 चलता रहेगा।</translation>
    </message>
    <message>
        <source>The server of the updates couldn’t prove who it is, so nothing was fetched.</source>
        <translation>अपडेट का सर्वर अपनी पहचान साबित नहीं कर सका, इसलिए कुछ नहीं लाया गया।</translation>
    </message>
    <message>
        <source>The server of the updates leads to a place that isn’t safe, so nothing was fetched.</source>
        <translation>अपडेट का सर्वर असुरक्षित जगह ले जाता है, इसलिए कुछ नहीं लाया गया।</translation>
    </message>
    <message>
        <source>The server of the updates leads round in circles, so nothing was fetched.</source>
        <translation>अपडेट का सर्वर गोल-गोल घुमाता है, इसलिए कुछ नहीं लाया गया।</translation>
    </message>
    <message>
        <source>The server of the updates doesn’t have what was asked for at the moment.</source>
        <translation>जो माँगा गया, वह अपडेट के सर्वर पर अभी नहीं है।</translation>
    </message>
    <message>
        <source>The server of the updates can’t be reached at the moment.</source>
        <translation>अपडेट का सर्वर अभी नहीं मिल रहा है।</translation>
    </message>
    <message>
        <source>The server of the updates sent more than a list of updates can be.</source>
        <translation>अपडेट के सर्वर ने अपडेट की सूची से कहीं ज़्यादा भेजा।</translation>
    </message>
    <message>
        <source>The list of updates isn’t signed by the makers of %1, so nothing in it was used.</source>
        <translation>अपडेट की सूची पर %1 बनाने वालों के हस्ताक्षर नहीं हैं, इसलिए उसमें से कुछ नहीं लिया गया।</translation>
    </message>
    <message>
        <source>The list of updates can’t be read.</source>
        <translation>अपडेट की सूची पढ़ी नहीं जा सकती।</translation>
    </message>
    <message>
        <source>The list of updates can’t be read: “%1” is missing or makes no sense.</source>
        <translation>अपडेट की सूची पढ़ी नहीं जा सकती: “%1” नहीं है या उसका कोई अर्थ नहीं।</translation>
    </message>
    <message>
        <source>The list of updates is dated after today. Set this computer’s date, then look again.</source>
        <translation>अपडेट की सूची पर आज के बाद की तारीख़ है। इस कंप्यूटर की तारीख़ ठीक करें, फिर देखें।</translation>
    </message>
    <message>
        <source>The list of updates is out of date, and a newer one may be held back. Nothing in it was used.</source>
        <translation>अपडेट की सूची पुरानी हो चुकी है, और हो सकता है नई रोकी गई हो। उसमें से कुछ नहीं लिया गया।</translation>
    </message>
    <message>
        <source>The list of updates is older than one that was here before, so nothing in it was used.</source>
        <translation>अपडेट की सूची पहले आ चुकी सूची से पुरानी है, इसलिए उसमें से कुछ नहीं लिया गया।</translation>
    </message>
    <message>
        <source>%1 took too long to fetch; what is here already stays for the next time.</source>
        <translation>%1 लाने में बहुत देर लगी; जितना आ चुका है, वह अगली बार के लिए रहेगा।</translation>
    </message>
    <message>
        <source>%1 isn’t as long as announced, so it was thrown away.</source>
        <translation>%1 उतना बड़ा नहीं है जितना बताया गया था, इसलिए हटा दिया गया।</translation>
    </message>
    <message>
        <source>%1 is longer than announced, so it was thrown away.</source>
        <translation>%1 बताए गए आकार से बड़ा है, इसलिए हटा दिया गया।</translation>
    </message>
    <message>
        <source>%1 isn’t what its makers signed, so it was thrown away.</source>
        <translation>%1 वह नहीं है जिस पर बनाने वालों ने हस्ताक्षर किए थे, इसलिए हटा दिया गया।</translation>
    </message>
    <message>
        <source>%1 can’t be kept on the disk: %2.</source>
        <translation>%1 डिस्क पर नहीं रखा जा सकता: %2.</translation>
    </message>
    <message>
        <source>The disk has no room for %1. %2 stays in use.</source>
        <translation>डिस्क पर %1 के लिए जगह नहीं है। %2 चलता रहेगा।</translation>
    </message>
    <message>
        <source>The disk has no room for %1.</source>
        <translation>डिस्क पर %1 के लिए जगह नहीं है।</translation>
    </message>
    <message>
        <source>%1 is being installed from another window already.</source>
        <translation>%1 पहले से किसी दूसरी विंडो से लगाया जा रहा है।</translation>
    </message>
    <message>
        <source>%1 can’t be installed: the version in use can’t be found.</source>
        <translation>%1 नहीं लगाया जा सकता: चालू संस्करण नहीं मिल रहा।</translation>
    </message>
    <message>
        <source>%1 has to wait until %2 was started once.</source>
        <translation>%2 के एक बार शुरू होने तक %1 को रुकना होगा।</translation>
    </message>
    <message>
        <source>The file of %1 isn’t the one its makers signed, so it wasn’t unpacked.</source>
        <translation>%1 की फ़ाइल वह नहीं है जिस पर बनाने वालों ने हस्ताक्षर किए थे, इसलिए खोली नहीं गई।</translation>
    </message>
    <message>
        <source>The file of %1 holds %2, so it wasn’t installed. %3 stays in use.</source>
        <translation>%1 की फ़ाइल में यह मिला, इसलिए नहीं लगाई गई: %2. %3 चलता रहेगा।</translation>
    </message>
    <message>
        <source>%1 couldn’t be put in its place: %2. %3 stays in use.</source>
        <translation>%1 अपनी जगह नहीं रखा जा सका: %2. %3 चलता रहेगा।</translation>
    </message>
    <message>
        <source>The film “%1” could not be made: %2.</source>
        <translation>वीडियो “%1” नहीं बन सका: %2.</translation>
    </message>
    <message>
        <source>The name of a film ends in .mp4 or .webm.</source>
        <translation>वीडियो के नाम के अंत में .mp4 या .webm होना चाहिए।</translation>
    </message>
    <message>
        <source>The film was given up.</source>
        <translation>वीडियो बनाना छोड़ दिया गया।</translation>
    </message>
    <message>
        <source>this computer has no encoder for it</source>
        <translation>इस कंप्यूटर में इसका एनकोडर नहीं है</translation>
    </message>
    <message>
        <source>it has no pictures</source>
        <translation>इसमें कोई चित्र नहीं है</translation>
    </message>
    <message>
        <source>Spending by category</source>
        <translation>श्रेणी के हिसाब से ख़र्च</translation>
    </message>
    <message>
        <source>Income by client</source>
        <translation>ग्राहक के हिसाब से आय</translation>
    </message>
    <message>
        <source>Unpaid invoices</source>
        <translation>बकाया इनवॉइस</translation>
    </message>
    <message>
        <source>Tax deducted at source</source>
        <translation>स्रोत पर काटा गया कर (TDS)</translation>
    </message>
    <message>
        <source>Tax deducted at source, by client</source>
        <translation>स्रोत पर काटा गया कर (TDS), ग्राहक के हिसाब से</translation>
    </message>
    <message>
        <source>Tax on expenses</source>
        <translation>ख़र्चों पर कर</translation>
    </message>
    <message>
        <source>3.1 Outward supplies</source>
        <translation>3.1 बाहरी आपूर्ति</translation>
    </message>
    <message>
        <source>3.2 Inter-state supplies to unregistered persons</source>
        <translation>3.2 अपंजीकृत व्यक्तियों को अंतरराज्यीय आपूर्ति</translation>
    </message>
    <message>
        <source>4 Input tax credit</source>
        <translation>4 इनपुट टैक्स क्रेडिट</translation>
    </message>
    <message>
        <source>6.1 Payment of tax</source>
        <translation>6.1 कर का भुगतान</translation>
    </message>
    <message>
        <source>4A, 6B Registered buyers and SEZ</source>
        <translation>4A, 6B पंजीकृत ख़रीदार और SEZ</translation>
    </message>
    <message>
        <source>5 Large invoices to consumers</source>
        <translation>5 उपभोक्ताओं को बड़े इनवॉइस</translation>
    </message>
    <message>
        <source>6A Exports</source>
        <translation>6A निर्यात</translation>
    </message>
    <message>
        <source>7 Other consumers</source>
        <translation>7 अन्य उपभोक्ता</translation>
    </message>
    <message>
        <source>8 Nil-rated or exempt</source>
        <translation>8 शून्य दर या छूट वाली</translation>
    </message>
    <message>
        <source>9B Credit notes to registered buyers</source>
        <translation>9B पंजीकृत ख़रीदारों को क्रेडिट नोट</translation>
    </message>
    <message>
        <source>9B Credit notes on exports and large invoices</source>
        <translation>9B निर्यात और बड़े इनवॉइस पर क्रेडिट नोट</translation>
    </message>
    <message>
        <source>12 HSN summary, registered buyers</source>
        <translation>12 HSN सारांश, पंजीकृत ख़रीदार</translation>
    </message>
    <message>
        <source>12 HSN summary, other buyers</source>
        <translation>12 HSN सारांश, अन्य ख़रीदार</translation>
    </message>
    <message>
        <source>12 HSN summary</source>
        <translation>12 HSN सारांश</translation>
    </message>
    <message>
        <source>13 Documents issued</source>
        <translation>13 जारी दस्तावेज़</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>महीना</translation>
    </message>
    <message>
        <source>Profit</source>
        <translation>लाभ</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>हिस्सा</translation>
    </message>
    <message>
        <source>Invoiced</source>
        <translation>इनवॉइस की रक़म</translation>
    </message>
    <message>
        <source>Past due</source>
        <translation>कितनी देर</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>देय तारीख़</translation>
    </message>
    <message>
        <source>Days late</source>
        <translation>देर के दिन</translation>
    </message>
    <message>
        <source>Quarter</source>
        <translation>तिमाही</translation>
    </message>
    <message>
        <source>Invoice date</source>
        <translation>इनवॉइस की तारीख़</translation>
    </message>
    <message>
        <source>Taxable</source>
        <translation>कर योग्य</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>मिला</translation>
    </message>
    <message>
        <source>Not claimed</source>
        <translation>क्रेडिट नहीं लिया</translation>
    </message>
    <message>
        <source>Trips</source>
        <translation>यात्राएँ</translation>
    </message>
    <message>
        <source>Distance, %1</source>
        <translation>दूरी, %1</translation>
    </message>
    <message>
        <source>Recipient</source>
        <translation>पाने वाला</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>मूल्य</translation>
    </message>
    <message>
        <source>To</source>
        <translation>किसे / तक</translation>
    </message>
    <message>
        <source>From</source>
        <translation>से</translation>
    </message>
    <message>
        <source>Nil-rated or exempt</source>
        <translation>शून्य दर या छूट</translation>
    </message>
    <message>
        <source>HSN/SAC</source>
        <translation>HSN/SAC</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>विवरण</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>मात्रा</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>Used</source>
        <translation>इस्तेमाल हुए</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>नहीं मिले</translation>
    </message>
    <message>
        <source>Supplies</source>
        <translation>आपूर्तियाँ</translation>
    </message>
    <message>
        <source>Credit</source>
        <translation>क्रेडिट</translation>
    </message>
    <message>
        <source>Payable</source>
        <translation>देय कर</translation>
    </message>
    <message>
        <source>Paid by credit</source>
        <translation>क्रेडिट से चुकाया</translation>
    </message>
    <message>
        <source>Paid in cash</source>
        <translation>नक़द चुकाया</translation>
    </message>
    <message>
        <source>Credit left</source>
        <translation>बचा क्रेडिट</translation>
    </message>
    <message>
        <source>Turnover</source>
        <translation>कारोबार</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>साल</translation>
    </message>
    <message>
        <source>Not yet due</source>
        <translation>अभी देय नहीं</translation>
    </message>
    <message>
        <source>1–30 days</source>
        <translation>1–30 दिन</translation>
    </message>
    <message>
        <source>31–60 days</source>
        <translation>31–60 दिन</translation>
    </message>
    <message>
        <source>61–90 days</source>
        <translation>61–90 दिन</translation>
    </message>
    <message>
        <source>Over 90 days</source>
        <translation>90 दिन से ज़्यादा</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>कोई प्रोजेक्ट नहीं</translation>
    </message>
    <message>
        <source>Registered persons</source>
        <translation>पंजीकृत व्यक्ति</translation>
    </message>
    <message>
        <source>Unregistered persons</source>
        <translation>अपंजीकृत व्यक्ति</translation>
    </message>
    <message>
        <source>96 · Outside India</source>
        <translation>96 · भारत से बाहर</translation>
    </message>
    <message>
        <source>(a) Taxable, other than zero-rated</source>
        <translation>(a) कर योग्य, शून्य-दर वाली छोड़कर</translation>
    </message>
    <message>
        <source>(b) Zero-rated: exports and SEZ</source>
        <translation>(b) शून्य-दर: निर्यात और SEZ</translation>
    </message>
    <message>
        <source>(c) Nil-rated or exempt</source>
        <translation>(c) शून्य दर या छूट वाली</translation>
    </message>
    <message>
        <source>(A)(5) All other credit, by the books</source>
        <translation>(A)(5) बाकी सारा क्रेडिट, बहीखाते से</translation>
    </message>
    <message>
        <source>Outward supplies, exempt ones included</source>
        <translation>बाहरी आपूर्ति, छूट वाली सहित</translation>
    </message>
    <message>
        <source>%1 taxable</source>
        <translation>%1 कर योग्य</translation>
    </message>
    <message>
        <source>%1 to pay</source>
        <translation>%1 देना है</translation>
    </message>
    <message>
        <source>%1 turnover</source>
        <translation>%1 कारोबार</translation>
    </message>
    <message>
        <source>%1 TDS</source>
        <translation>%1 TDS</translation>
    </message>
    <message>
        <source>January</source>
        <translation>जनवरी</translation>
    </message>
    <message>
        <source>February</source>
        <translation>फ़रवरी</translation>
    </message>
    <message>
        <source>March</source>
        <translation>मार्च</translation>
    </message>
    <message>
        <source>April</source>
        <translation>अप्रैल</translation>
    </message>
    <message>
        <source>May</source>
        <translation>मई</translation>
    </message>
    <message>
        <source>June</source>
        <translation>जून</translation>
    </message>
    <message>
        <source>July</source>
        <translation>जुलाई</translation>
    </message>
    <message>
        <source>August</source>
        <translation>अगस्त</translation>
    </message>
    <message>
        <source>September</source>
        <translation>सितंबर</translation>
    </message>
    <message>
        <source>October</source>
        <translation>अक्टूबर</translation>
    </message>
    <message>
        <source>November</source>
        <translation>नवंबर</translation>
    </message>
    <message>
        <source>December</source>
        <translation>दिसंबर</translation>
    </message>
    <message>
        <source>Jan</source>
        <translation>जन॰</translation>
    </message>
    <message>
        <source>Feb</source>
        <translation>फ़र॰</translation>
    </message>
    <message>
        <source>Mar</source>
        <translation>मार्च</translation>
    </message>
    <message>
        <source>Apr</source>
        <translation>अप्रैल</translation>
    </message>
    <message>
        <source>Jun</source>
        <translation>जून</translation>
    </message>
    <message>
        <source>Jul</source>
        <translation>जुल॰</translation>
    </message>
    <message>
        <source>Aug</source>
        <translation>अग॰</translation>
    </message>
    <message>
        <source>Sept</source>
        <translation>सित॰</translation>
    </message>
    <message>
        <source>Oct</source>
        <translation>अक्टू॰</translation>
    </message>
    <message>
        <source>Nov</source>
        <translation>नव॰</translation>
    </message>
    <message>
        <source>Dec</source>
        <translation>दिस॰</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>सोमवार</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>मंगलवार</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>बुधवार</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>गुरुवार</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>शुक्रवार</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>शनिवार</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>रविवार</translation>
    </message>
    <message>
        <source>Mon</source>
        <translation>सोम</translation>
    </message>
    <message>
        <source>Tue</source>
        <translation>मंगल</translation>
    </message>
    <message>
        <source>Wed</source>
        <translation>बुध</translation>
    </message>
    <message>
        <source>Thu</source>
        <translation>गुरु</translation>
    </message>
    <message>
        <source>Fri</source>
        <translation>शुक्र</translation>
    </message>
    <message>
        <source>Sat</source>
        <translation>शनि</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>रवि</translation>
    </message>
    <message>
        <source>%1 repeated in this file</source>
        <translation>%1 इसी फ़ाइल में दोहराई गईं</translation>
    </message>
    <message>
        <source>1 was repeated in the file</source>
        <translation>1 फ़ाइल में दोहराई गई थी</translation>
    </message>
    <message>
        <source>%1 were repeated in the file</source>
        <translation>%1 फ़ाइल में दोहराई गई थीं</translation>
    </message>
    <message>
        <source>The amounts in this file are in %1, and were read as %2.</source>
        <translation>इस फ़ाइल की रक़में %1 में हैं, और %2 मानकर पढ़ी गईं।</translation>
    </message>
    <message>
        <source>This file holds lines of %1 accounts.</source>
        <translation>इस फ़ाइल में %1 खातों की पंक्तियाँ हैं।</translation>
    </message>
    <message>
        <source>Lines marked as money out have no minus in this file; they were read as money in.</source>
        <translation>इस फ़ाइल में निकासी लिखी पंक्तियों पर ऋण का चिह्न नहीं है; वे जमा मानकर पढ़ी गईं।</translation>
    </message>
    <message>
        <source>Only the first sheet of the workbook was read; other sheets hold transactions too.</source>
        <translation>वर्कबुक की केवल पहली शीट पढ़ी गई; दूसरी शीटों में भी लेन-देन हैं।</translation>
    </message>
    <message>
        <source>A quotation mark in this file has no partner: rows behind it may be missing or misread.</source>
        <translation>इस फ़ाइल में एक उद्धरण चिह्न अकेला है: उसके बाद की पंक्तियाँ छूटी या ग़लत पढ़ी गई हो सकती हैं।</translation>
    </message>
    <message>
        <source>The columns change in row %1 of the file.</source>
        <translation>फ़ाइल की पंक्ति %1 में कॉलम बदल जाते हैं।</translation>
    </message>
    <message>
        <source>A quotation mark in this row is not closed and has drawn other rows into it.</source>
        <translation>इस पंक्ति का उद्धरण चिह्न बंद नहीं हुआ और दूसरी पंक्तियाँ इसी में आ गईं।</translation>
    </message>
    <message>
        <source>This row has more cells than the others: one of them holds the mark that separates cells.</source>
        <translation>इस पंक्ति में बाकी से ज़्यादा खाने हैं: किसी एक में वही चिह्न है जो खानों को अलग करता है।</translation>
    </message>
    <message>
        <source>This row has fewer cells than the others: one of them is missing.</source>
        <translation>इस पंक्ति में बाकी से कम खाने हैं: कोई एक नहीं है।</translation>
    </message>
    <message>
        <source>The bank marks this row as %1.</source>
        <translation>बैंक ने इस पंक्ति पर %1 लिखा है।</translation>
    </message>
    <message>
        <source>This row is in %1, the others are in %2.</source>
        <translation>यह पंक्ति %1 में है, बाकी %2 में।</translation>
    </message>
    <message>
        <source>This line is in %1, the others are in %2.</source>
        <translation>यह पंक्ति %1 में है, बाकी %2 में।</translation>
    </message>
    <message>
        <source>There is no date in this row.</source>
        <translation>इस पंक्ति में तारीख़ नहीं है।</translation>
    </message>
    <message>
        <source>There is no date in this line.</source>
        <translation>इस पंक्ति में तारीख़ नहीं है।</translation>
    </message>
    <message>
        <source>There is no amount in this row.</source>
        <translation>इस पंक्ति में रक़म नहीं है।</translation>
    </message>
    <message>
        <source>There is no amount in this line.</source>
        <translation>इस पंक्ति में रक़म नहीं है।</translation>
    </message>
    <message>
        <source>Both money out and money in are filled in.</source>
        <translation>निकासी और जमा दोनों भरे हैं।</translation>
    </message>
    <message>
        <source>The mark beside the amount contradicts its column.</source>
        <translation>रक़म के साथ का चिह्न उसके कॉलम से मेल नहीं खाता।</translation>
    </message>
    <message>
        <source>A minus in this column can mean two things.</source>
        <translation>इस कॉलम में ऋण के चिह्न के दो अर्थ हो सकते हैं।</translation>
    </message>
    <message>
        <source>The amount stands in another column than those of the other rows.</source>
        <translation>रक़म बाकी पंक्तियों से अलग कॉलम में है।</translation>
    </message>
    <message>
        <source>The amount is zero.</source>
        <translation>रक़म शून्य है।</translation>
    </message>
    <message>
        <source>The mark beside the amount contradicts the column that says which way the money went.</source>
        <translation>रक़म के साथ का चिह्न उस कॉलम से मेल नहीं खाता जो बताता है कि पैसा आया या गया।</translation>
    </message>
    <message>
        <source>The amount is negative, but marked as money in.</source>
        <translation>रक़म ऋणात्मक है, पर उस पर जमा लिखा है।</translation>
    </message>
    <message>
        <source>Nothing says which way the money went.</source>
        <translation>कहीं नहीं लिखा कि पैसा आया या गया।</translation>
    </message>
    <message>
        <source>This row is a balance or a total, not a transaction.</source>
        <translation>यह पंक्ति शेष या कुल है, लेन-देन नहीं।</translation>
    </message>
    <message>
        <source>%1 is not a date.</source>
        <translation>%1 तारीख़ नहीं है।</translation>
    </message>
    <message>
        <source>%1 is not an amount.</source>
        <translation>%1 रक़म नहीं है।</translation>
    </message>
    <message>
        <source>%1 can be read as two different amounts.</source>
        <translation>%1 को दो अलग रक़मों की तरह पढ़ा जा सकता है।</translation>
    </message>
    <message>
        <source>%1 is too large to be an amount.</source>
        <translation>%1 इतना बड़ा है कि रक़म नहीं हो सकता।</translation>
    </message>
    <message>
        <source>Indian rupee</source>
        <translation>भारतीय रुपया</translation>
    </message>
    <message>
        <source>US dollar</source>
        <translation>अमेरिकी डॉलर</translation>
    </message>
    <message>
        <source>Euro</source>
        <translation>यूरो</translation>
    </message>
    <message>
        <source>Pound sterling</source>
        <translation>पाउंड स्टर्लिंग</translation>
    </message>
    <message>
        <source>UAE dirham</source>
        <translation>यूएई दिरहम</translation>
    </message>
    <message>
        <source>Singapore dollar</source>
        <translation>सिंगापुर डॉलर</translation>
    </message>
    <message>
        <source>Australian dollar</source>
        <translation>ऑस्ट्रेलियाई डॉलर</translation>
    </message>
    <message>
        <source>Canadian dollar</source>
        <translation>कनाडाई डॉलर</translation>
    </message>
    <message>
        <source>New Zealand dollar</source>
        <translation>न्यूज़ीलैंड डॉलर</translation>
    </message>
    <message>
        <source>Swiss franc</source>
        <translation>स्विस फ़्रैंक</translation>
    </message>
    <message>
        <source>Japanese yen</source>
        <translation>जापानी येन</translation>
    </message>
    <message>
        <source>Kuwaiti dinar</source>
        <translation>कुवैती दिनार</translation>
    </message>
    <message>
        <source>Bahraini dinar</source>
        <translation>बहरीनी दिनार</translation>
    </message>
    <message>
        <source>Saudi riyal</source>
        <translation>सऊदी रियाल</translation>
    </message>
    <message>
        <source>South African rand</source>
        <translation>दक्षिण अफ़्रीकी रैंड</translation>
    </message>
    <message>
        <source>Sri Lankan rupee</source>
        <translation>श्रीलंकाई रुपया</translation>
    </message>
    <message>
        <source>Nepalese rupee</source>
        <translation>नेपाली रुपया</translation>
    </message>
    <message>
        <source>Bangladeshi taka</source>
        <translation>बांग्लादेशी टका</translation>
    </message>
    <message>
        <source>Jammu and Kashmir</source>
        <translation>जम्मू और कश्मीर</translation>
    </message>
    <message>
        <source>Himachal Pradesh</source>
        <translation>हिमाचल प्रदेश</translation>
    </message>
    <message>
        <source>Punjab</source>
        <translation>पंजाब</translation>
    </message>
    <message>
        <source>Chandigarh</source>
        <translation>चंडीगढ़</translation>
    </message>
    <message>
        <source>Uttarakhand</source>
        <translation>उत्तराखंड</translation>
    </message>
    <message>
        <source>Haryana</source>
        <translation>हरियाणा</translation>
    </message>
    <message>
        <source>Delhi</source>
        <translation>दिल्ली</translation>
    </message>
    <message>
        <source>Rajasthan</source>
        <translation>राजस्थान</translation>
    </message>
    <message>
        <source>Uttar Pradesh</source>
        <translation>उत्तर प्रदेश</translation>
    </message>
    <message>
        <source>Bihar</source>
        <translation>बिहार</translation>
    </message>
    <message>
        <source>Sikkim</source>
        <translation>सिक्किम</translation>
    </message>
    <message>
        <source>Arunachal Pradesh</source>
        <translation>अरुणाचल प्रदेश</translation>
    </message>
    <message>
        <source>Nagaland</source>
        <translation>नागालैंड</translation>
    </message>
    <message>
        <source>Manipur</source>
        <translation>मणिपुर</translation>
    </message>
    <message>
        <source>Mizoram</source>
        <translation>मिज़ोरम</translation>
    </message>
    <message>
        <source>Tripura</source>
        <translation>त्रिपुरा</translation>
    </message>
    <message>
        <source>Meghalaya</source>
        <translation>मेघालय</translation>
    </message>
    <message>
        <source>Assam</source>
        <translation>असम</translation>
    </message>
    <message>
        <source>West Bengal</source>
        <translation>पश्चिम बंगाल</translation>
    </message>
    <message>
        <source>Jharkhand</source>
        <translation>झारखंड</translation>
    </message>
    <message>
        <source>Odisha</source>
        <translation>ओडिशा</translation>
    </message>
    <message>
        <source>Chhattisgarh</source>
        <translation>छत्तीसगढ़</translation>
    </message>
    <message>
        <source>Madhya Pradesh</source>
        <translation>मध्य प्रदेश</translation>
    </message>
    <message>
        <source>Gujarat</source>
        <translation>गुजरात</translation>
    </message>
    <message>
        <source>Dadra and Nagar Haveli and Daman and Diu</source>
        <translation>दादरा और नगर हवेली तथा दमन और दीव</translation>
    </message>
    <message>
        <source>Maharashtra</source>
        <translation>महाराष्ट्र</translation>
    </message>
    <message>
        <source>Karnataka</source>
        <translation>कर्नाटक</translation>
    </message>
    <message>
        <source>Goa</source>
        <translation>गोवा</translation>
    </message>
    <message>
        <source>Lakshadweep</source>
        <translation>लक्षद्वीप</translation>
    </message>
    <message>
        <source>Kerala</source>
        <translation>केरल</translation>
    </message>
    <message>
        <source>Tamil Nadu</source>
        <translation>तमिलनाडु</translation>
    </message>
    <message>
        <source>Puducherry</source>
        <translation>पुदुच्चेरी</translation>
    </message>
    <message>
        <source>Andaman and Nicobar Islands</source>
        <translation>अंडमान और निकोबार द्वीपसमूह</translation>
    </message>
    <message>
        <source>Telangana</source>
        <translation>तेलंगाना</translation>
    </message>
    <message>
        <source>Andhra Pradesh</source>
        <translation>आंध्र प्रदेश</translation>
    </message>
    <message>
        <source>Ladakh</source>
        <translation>लद्दाख</translation>
    </message>
    <message>
        <source>Other Territory</source>
        <translation>अन्य क्षेत्र</translation>
    </message>
    <message>
        <source>No date was found.</source>
        <translation>कोई तारीख़ नहीं मिली।</translation>
    </message>
    <message>
        <source>The date fits only another order of day and month.</source>
        <translation>तारीख़ दिन और महीने के दूसरे क्रम में ही बैठती है।</translation>
    </message>
    <message>
        <source>The date lies in the future or more than ten years back.</source>
        <translation>तारीख़ आगे की है या दस साल से ज़्यादा पुरानी।</translation>
    </message>
    <message>
        <source>No total was found.</source>
        <translation>कुल रक़म नहीं मिली।</translation>
    </message>
    <message>
        <source>The total is the largest amount; no line was labelled as the total.</source>
        <translation>कुल सबसे बड़ी रक़म मानी गई; किसी पंक्ति पर कुल नहीं लिखा था।</translation>
    </message>
    <message>
        <source>The total does not agree with the subtotal and the tax.</source>
        <translation>कुल, उप-योग और कर से मेल नहीं खाता।</translation>
    </message>
    <message>
        <source>A figure is too large to be right, so the reports leave this expense out.</source>
        <translation>कोई आँकड़ा इतना बड़ा है कि सही नहीं हो सकता, इसलिए यह ख़र्च रिपोर्ट में नहीं है।</translation>
    </message>
    <message>
        <source>The exchange rate is too large to be right, so the reports leave this expense out.</source>
        <translation>विनिमय दर इतनी बड़ी है कि सही नहीं हो सकती, इसलिए यह ख़र्च रिपोर्ट में नहीं है।</translation>
    </message>
    <message>
        <source>The amount is missing.</source>
        <translation>रक़म नहीं लिखी है।</translation>
    </message>
    <message>
        <source>The tax is more than the amount.</source>
        <translation>कर रक़म से ज़्यादा है।</translation>
    </message>
    <message>
        <source>The parts of the tax don’t add up to the tax.</source>
        <translation>कर के हिस्सों का जोड़ कर के बराबर नहीं है।</translation>
    </message>
    <message>
        <source>The category is missing.</source>
        <translation>श्रेणी नहीं चुनी है।</translation>
    </message>
    <message>
        <source>Apr–Jun</source>
        <translation>अप्रैल–जून</translation>
    </message>
    <message>
        <source>Jul–Sep</source>
        <translation>जुल॰–सित॰</translation>
    </message>
    <message>
        <source>Oct–Dec</source>
        <translation>अक्टू॰–दिस॰</translation>
    </message>
    <message>
        <source>Jan–Mar</source>
        <translation>जन॰–मार्च</translation>
    </message>
    <message>
        <source>%1 is no day when read as %2.</source>
        <translation>%1 को %2 के क्रम में पढ़ें तो ऐसा कोई दिन नहीं है।</translation>
    </message>
    <message>
        <source>%1 does not say which way the money went.</source>
        <translation>%1 से पता नहीं चलता कि पैसा आया या गया।</translation>
    </message>
</context>
<context>
    <name>tamba::AboutSheet</name>
    <message>
        <source>Bookkeeping for freelancers and small studios.</source>
        <translation>फ़्रीलांसरों और छोटे स्टूडियो के लिए बहीखाता।</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>GNU General Public License, संस्करण 3 या उसके बाद के अधीन मुक्त सॉफ़्टवेयर। इसके साथ कोई वारंटी नहीं है।</translation>
    </message>
    <message>
        <source>Your books are in %1</source>
        <translation>आपका बहीखाता %1 में है</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
</context>
<context>
    <name>tamba::AccentField</name>
    <message>
        <source>Colour</source>
        <translation>रंग</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>रंग %1</translation>
    </message>
    <message>
        <source>Enter six hex digits such as 1E4A66.</source>
        <translation>1E4A66 जैसे छह हेक्स अंक लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::AccountSheet</name>
    <message>
        <source>Bank Account</source>
        <translation>बैंक खाता</translation>
    </message>
    <message>
        <source>New Bank Account</source>
        <translation>नया बैंक खाता</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>HDFC current account</source>
        <translation>HDFC चालू खाता</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>मुद्रा</translation>
    </message>
    <message>
        <source>Its lines are in this currency.</source>
        <translation>इसकी पंक्तियाँ इसी मुद्रा में हैं।</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>सहेजें</translation>
    </message>
    <message>
        <source>Add Account</source>
        <translation>खाता जोड़ें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
</context>
<context>
    <name>tamba::ActivityStrip</name>
    <message>
        <source>Progress</source>
        <translation>प्रगति</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2 में से %1</translation>
    </message>
</context>
<context>
    <name>tamba::AppModel</name>
    <message>
        <source>The books that were in %1 are not there any more. The folder may have been moved or renamed, or its disk is not connected.</source>
        <translation>%1 में जो बहीखाता था, वह अब वहाँ नहीं है। हो सकता है फ़ोल्डर कहीं और रख दिया गया हो, उसका नाम बदला गया हो या उसकी डिस्क जुड़ी न हो।</translation>
    </message>
    <message>
        <source>1 recurring expense added</source>
        <translation>बार-बार आने वाला 1 ख़र्च जोड़ा गया</translation>
    </message>
    <message>
        <source>%1 recurring expenses added</source>
        <translation>बार-बार आने वाले %1 ख़र्च जोड़े गए</translation>
    </message>
    <message>
        <source>Changes made on another computer were brought in.</source>
        <translation>दूसरे कंप्यूटर पर किए गए बदलाव ले लिए गए।</translation>
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
    <message>
        <source>The accent is the business’s colour, on the page “Invoices”. Where it would be hard to read, texts are set in a darker or lighter shade of it.</source>
        <translation>मुख्य रंग आपके व्यवसाय का रंग है, जो “इनवॉइस” पन्ने पर चुना जाता है। जहाँ उसे पढ़ना कठिन हो, वहाँ अक्षर उसी के गहरे या हल्के रंग में दिखते हैं।</translation>
    </message>
</context>
<context>
    <name>tamba::BackupSheet</name>
    <message>
        <source>Restore a Backup</source>
        <translation>बैकअप से लौटाएँ</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>पढ़ा जा रहा है…</translation>
    </message>
    <message>
        <source>The books go back to how they were then. The present file is kept beside the backups, and receipts stay where they are.</source>
        <translation>बहीखाता वैसा हो जाता है जैसा तब था। अभी की फ़ाइल बैकअप के साथ रखी जाती है, और रसीदें जहाँ हैं वहीं रहती हैं।</translation>
    </message>
    <message>
        <source>Backups</source>
        <translation>बैकअप</translation>
    </message>
    <message>
        <source>%1 · %2 · %3</source>
        <translation>%1 · %2 · %3</translation>
    </message>
    <message>
        <source>as opened that day</source>
        <translation>जैसा उस दिन खोला गया</translation>
    </message>
    <message>
        <source>first save of the day</source>
        <translation>दिन में पहली बार सहेजा गया</translation>
    </message>
    <message>
        <source>There is no backup in this folder yet.</source>
        <translation>इस फ़ोल्डर में अभी कोई बैकअप नहीं है।</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>लौटाएँ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>The same as the books now.</source>
        <translation>अभी के बहीखाते जैसा ही।</translation>
    </message>
    <message>
        <source>Against now: %1.</source>
        <translation>अभी की तुलना में: %1।</translation>
    </message>
    <message>
        <source>; </source>
        <translation>; </translation>
    </message>
    <message>
        <source>before it was replaced</source>
        <translation>बदले जाने से पहले</translation>
    </message>
</context>
<context>
    <name>tamba::BankScreen</name>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>पंक्ति</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Matched to</source>
        <translation>किससे मिलाया</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Which bank lines</source>
        <translation>कौन-सी बैंक पंक्तियाँ</translation>
    </message>
    <message>
        <source>Import Statement…</source>
        <translation>स्टेटमेंट लाएँ…</translation>
    </message>
    <message>
        <source>Match the Obvious Ones</source>
        <translation>साफ़ मेल वाली मिलाएँ</translation>
    </message>
    <message>
        <source>Match every line that has one clear counterpart (F5)</source>
        <translation>जिस पंक्ति का एक ही साफ़ मेल हो, उसे मिलाएँ (F5)</translation>
    </message>
    <message>
        <source>Search bank lines</source>
        <translation>बैंक पंक्तियों में खोजें</translation>
    </message>
    <message>
        <source>Search name, narration, amount</source>
        <translation>नाम, विवरण, रक़म खोजें</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>खाता</translation>
    </message>
    <message>
        <source>Add or rename accounts</source>
        <translation>खाते जोड़ें या उनके नाम बदलें</translation>
    </message>
    <message>
        <source>Bank lines</source>
        <translation>बैंक पंक्तियाँ</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>कॉपी करें</translation>
    </message>
    <message>
        <source>All accounts</source>
        <translation>सभी खाते</translation>
    </message>
    <message>
        <source>In %1</source>
        <translation>जमा %1</translation>
    </message>
    <message>
        <source>Out %1</source>
        <translation>निकासी %1</translation>
    </message>
    <message>
        <source>Bring in your bank statement</source>
        <translation>अपना बैंक स्टेटमेंट लाएँ</translation>
    </message>
    <message>
        <source>Download it from your bank’s site as CSV, Excel or OFX; every line is then matched with an expense or an invoice.</source>
        <translation>इसे अपने बैंक की साइट से CSV, Excel या OFX में डाउनलोड करें; फिर हर पंक्ति किसी ख़र्च या इनवॉइस से मिलाई जाती है।</translation>
    </message>
    <message>
        <source>Everything is matched.</source>
        <translation>सब कुछ मिलाया जा चुका है।</translation>
    </message>
    <message>
        <source>New lines appear here when you import the next statement.</source>
        <translation>अगला स्टेटमेंट लाने पर नई पंक्तियाँ यहाँ दिखेंगी।</translation>
    </message>
    <message>
        <source>Show All Lines</source>
        <translation>सभी पंक्तियाँ दिखाएँ</translation>
    </message>
    <message>
        <source>Nothing here</source>
        <translation>यहाँ कुछ नहीं है</translation>
    </message>
    <message>
        <source>No bank line fits this list, search, account and period.</source>
        <translation>इस सूची, खोज, खाते और अवधि में कोई बैंक पंक्ति नहीं है।</translation>
    </message>
    <message>
        <source>Nothing is obvious: look through the open lines.</source>
        <translation>साफ़ मेल कोई नहीं: खुली पंक्तियाँ स्वयं देख लें।</translation>
    </message>
    <message>
        <source>1 line matched</source>
        <translation>1 पंक्ति मिलाई गई</translation>
    </message>
    <message>
        <source>%1 lines matched</source>
        <translation>%1 पंक्तियाँ मिलाई गईं</translation>
    </message>
    <message>
        <source>Add Account</source>
        <translation>खाता जोड़ें</translation>
    </message>
    <message>
        <source>Choose the account first.</source>
        <translation>पहले खाता चुनें।</translation>
    </message>
    <message>
        <source>Change Account</source>
        <translation>खाता बदलें</translation>
    </message>
    <message>
        <source>Add Account…</source>
        <translation>खाता जोड़ें…</translation>
    </message>
    <message>
        <source>Change This Account…</source>
        <translation>यह खाता बदलें…</translation>
    </message>
    <message>
        <source>Bank lines are not deleted: set aside the ones that belong to nothing.</source>
        <translation>बैंक पंक्तियाँ हटाई नहीं जातीं: जो किसी की न हों, उन्हें अलग रखें।</translation>
    </message>
    <message>
        <source>Match Obvious</source>
        <translation>साफ़ मेल मिलाएँ</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>लाएँ…</translation>
    </message>
</context>
<context>
    <name>tamba::BarChart</name>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: %2 %3</source>
        <translation>%1: %2 %3</translation>
    </message>
</context>
<context>
    <name>tamba::BillableSheet</name>
    <message>
        <source>Bill Expenses On</source>
        <translation>ख़र्च ग्राहक के बिल में जोड़ें</translation>
    </message>
    <message>
        <source>Each becomes a line of its own, at the tax rate of the first line.</source>
        <translation>हर ख़र्च पहली पंक्ति की कर दर पर अपनी अलग पंक्ति बनता है।</translation>
    </message>
    <message>
        <source>Expenses to bill on</source>
        <translation>बिल में जोड़े जाने वाले ख़र्च</translation>
    </message>
    <message>
        <source>Add Lines</source>
        <translation>पंक्तियाँ जोड़ें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>No vendor</source>
        <translation>कोई विक्रेता नहीं</translation>
    </message>
    <message>
        <source>no client</source>
        <translation>कोई ग्राहक नहीं</translation>
    </message>
</context>
<context>
    <name>tamba::BusinessPage</name>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>पता</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>देश</translation>
    </message>
    <message>
        <source>State</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>चुना नहीं गया</translation>
    </message>
    <message>
        <source>With your GSTIN, it decides between CGST + SGST and IGST.</source>
        <translation>आपके GSTIN के साथ इसी से तय होता है कि CGST + SGST लगेगा या IGST।</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>ई-मेल</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>वेबसाइट</translation>
    </message>
    <message>
        <source>Books</source>
        <translation>बहीखाता</translation>
    </message>
    <message>
        <source>Home currency</source>
        <translation>घरेलू मुद्रा</translation>
    </message>
    <message>
        <source>Year begins in</source>
        <translation>साल की शुरुआत</translation>
    </message>
    <message>
        <source>What is in the books already keeps its exchange rates: an amount in %1 will count as the same number of %2.</source>
        <translation>बहीखाते में जो पहले से है उसकी विनिमय दरें वही रहती हैं: %1 की रक़म उतने ही %2 गिनी जाएगी।</translation>
    </message>
</context>
<context>
    <name>tamba::CategoriesPage</name>
    <message>
        <source>App</source>
        <translation>ऐप</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>कंप्यूटर</translation>
    </message>
    <message>
        <source>Aeroplane</source>
        <translation>हवाई जहाज़</translation>
    </message>
    <message>
        <source>Car</source>
        <translation>कार</translation>
    </message>
    <message>
        <source>Meal</source>
        <translation>भोजन</translation>
    </message>
    <message>
        <source>Paper clip</source>
        <translation>पेपर क्लिप</translation>
    </message>
    <message>
        <source>House</source>
        <translation>मकान</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>सिग्नल</translation>
    </message>
    <message>
        <source>Briefcase</source>
        <translation>ब्रीफ़केस</translation>
    </message>
    <message>
        <source>Megaphone</source>
        <translation>भोंपू</translation>
    </message>
    <message>
        <source>Bank</source>
        <translation>बैंक</translation>
    </message>
    <message>
        <source>Road</source>
        <translation>सड़क</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>ट्रे</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>टैग</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>श्रेणियाँ</translation>
    </message>
    <message>
        <source>Add Category</source>
        <translation>श्रेणी जोड़ें</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Glyph</source>
        <translation>चिह्न</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>रंग</translation>
    </message>
    <message>
        <source>Input tax is claimed</source>
        <translation>इनपुट टैक्स लिया जाता है</translation>
    </message>
    <message>
        <source>Take it away</source>
        <translation>हटा दें</translation>
    </message>
    <message>
        <source>File under</source>
        <translation>किस श्रेणी में रखें</translation>
    </message>
    <message>
        <source>Remove This Category</source>
        <translation>यह श्रेणी हटाएँ</translation>
    </message>
    <message>
        <source>New category</source>
        <translation>नई श्रेणी</translation>
    </message>
    <message>
        <source>A category needs a name.</source>
        <translation>श्रेणी का नाम होना चाहिए।</translation>
    </message>
    <message>
        <source>Nothing is filed under it.</source>
        <translation>इसमें कुछ नहीं रखा गया है।</translation>
    </message>
    <message>
        <source>Used by %1.</source>
        <translation>इनमें काम आती है: %1।</translation>
    </message>
    <message>
        <source>No category</source>
        <translation>कोई श्रेणी नहीं</translation>
    </message>
</context>
<context>
    <name>tamba::ClientForm</name>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Company or person</source>
        <translation>कंपनी या व्यक्ति</translation>
    </message>
    <message>
        <source>Contact</source>
        <translation>संपर्क</translation>
    </message>
    <message>
        <source>Who you write to</source>
        <translation>आप किसे लिखते हैं</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>ई-मेल</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>फ़ोन</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>पता</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>देश</translation>
    </message>
    <message>
        <source>State</source>
        <translation>राज्य</translation>
    </message>
    <message>
        <source>Not set</source>
        <translation>चुना नहीं गया</translation>
    </message>
    <message>
        <source>GSTIN</source>
        <translation>GSTIN</translation>
    </message>
    <message>
        <source>In a special economic zone</source>
        <translation>विशेष आर्थिक क्षेत्र में</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>मुद्रा</translation>
    </message>
    <message>
        <source>Due after</source>
        <translation>देय अवधि</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>SEZ</source>
        <translation>SEZ</translation>
    </message>
    <message>
        <source>%1 days, as for everyone</source>
        <translation>%1 दिन, जैसे सबके लिए</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>कर संख्या</translation>
    </message>
    <message>
        <source>Enter a number of days such as 30.</source>
        <translation>30 जैसी दिनों की संख्या लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::ClientInspector</name>
    <message>
        <source>Select a client to see and change them here.</source>
        <translation>देखने और बदलने के लिए कोई ग्राहक चुनें।</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>नया इनवॉइस</translation>
    </message>
    <message>
        <source>New Estimate</source>
        <translation>नया एस्टीमेट</translation>
    </message>
    <message>
        <source>DOCUMENTS</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>Documents of this client</source>
        <translation>इस ग्राहक के दस्तावेज़</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>संग्रह में रखें</translation>
    </message>
    <message>
        <source>Delete Client</source>
        <translation>ग्राहक हटाएँ</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Take Back from Archive</source>
        <translation>संग्रह से वापस लाएँ</translation>
    </message>
    <message>
        <source>Invoiced %1</source>
        <translation>बिल किया %1</translation>
    </message>
    <message>
        <source>received %1</source>
        <translation>मिला %1</translation>
    </message>
    <message>
        <source>overdue %1</source>
        <translation>देय तारीख़ बीती %1</translation>
    </message>
    <message>
        <source>pays %1</source>
        <translation>भुगतान %1</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 बदलें</translation>
    </message>
</context>
<context>
    <name>tamba::ClientPages</name>
    <message>
        <source>Clients or projects</source>
        <translation>ग्राहक या प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>प्रोजेक्ट</translation>
    </message>
</context>
<context>
    <name>tamba::ClientSheet</name>
    <message>
        <source>New Client</source>
        <translation>नया ग्राहक</translation>
    </message>
    <message>
        <source>Add Client</source>
        <translation>ग्राहक जोड़ें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
</context>
<context>
    <name>tamba::ClientsScreen</name>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>State or country</source>
        <translation>राज्य या देश</translation>
    </message>
    <message>
        <source>Pays</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>बकाया बीता</translation>
    </message>
    <message>
        <source>Owed</source>
        <translation>बकाया</translation>
    </message>
    <message>
        <source>New Client</source>
        <translation>नया ग्राहक</translation>
    </message>
    <message>
        <source>New client (Ctrl+N)</source>
        <translation>नया ग्राहक (Ctrl+N)</translation>
    </message>
    <message>
        <source>Search clients</source>
        <translation>ग्राहक खोजें</translation>
    </message>
    <message>
        <source>Search name, contact, e-mail, GSTIN, notes</source>
        <translation>नाम, संपर्क, ई-मेल, GSTIN, टिप्पणी खोजें</translation>
    </message>
    <message>
        <source>Show archived</source>
        <translation>संग्रह भी दिखाएँ</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Who do you work for?</source>
        <translation>आप किनके लिए काम करते हैं?</translation>
    </message>
    <message>
        <source>A client’s name and GSTIN, entered once, fill in every invoice for them.</source>
        <translation>ग्राहक का नाम और GSTIN एक बार लिखें, फिर वे उसके हर इनवॉइस में अपने-आप भर जाते हैं।</translation>
    </message>
    <message>
        <source>Nothing here</source>
        <translation>यहाँ कुछ नहीं है</translation>
    </message>
    <message>
        <source>No client fits this search.</source>
        <translation>इस खोज में कोई ग्राहक नहीं मिला।</translation>
    </message>
    <message>
        <source>Show All Clients</source>
        <translation>सभी ग्राहक दिखाएँ</translation>
    </message>
    <message>
        <source>Archive %1 instead?</source>
        <translation>%1 को हटाने के बदले संग्रह में रखें?</translation>
    </message>
    <message>
        <source>%1 refer to this client, who therefore cannot be deleted. Archived, they are offered for nothing new.</source>
        <translation>%1 इस ग्राहक से जुड़े हैं, इसलिए इसे हटाया नहीं जा सकता। संग्रह में रखने पर यह नए काम में नहीं सुझाया जाता।</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>संग्रह में रखें</translation>
    </message>
    <message>
        <source>%1 refer to this client.</source>
        <translation>%1 इस ग्राहक से जुड़े हैं।</translation>
    </message>
    <message>
        <source>Delete Client</source>
        <translation>ग्राहक हटाएँ</translation>
    </message>
    <message>
        <source>Client deleted</source>
        <translation>ग्राहक हटाया गया</translation>
    </message>
    <message>
        <source>Archive Client</source>
        <translation>ग्राहक को संग्रह में रखें</translation>
    </message>
    <message>
        <source>Take Back Client</source>
        <translation>ग्राहक को वापस लाएँ</translation>
    </message>
    <message>
        <source>Client archived</source>
        <translation>ग्राहक संग्रह में रखा गया</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>नया इनवॉइस</translation>
    </message>
    <message>
        <source>New Estimate</source>
        <translation>नया एस्टीमेट</translation>
    </message>
    <message>
        <source>Copy E-mail Address</source>
        <translation>ई-मेल पता कॉपी करें</translation>
    </message>
    <message>
        <source>Copy GSTIN</source>
        <translation>GSTIN कॉपी करें</translation>
    </message>
    <message>
        <source>Take Back from Archive</source>
        <translation>संग्रह से वापस लाएँ</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>कॉपी करें</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>हटाएँ</translation>
    </message>
</context>
<context>
    <name>tamba::ConflictSheet</name>
    <message>
        <source>Changed on Two Computers</source>
        <translation>दो कंप्यूटरों पर बदला गया</translation>
    </message>
    <message>
        <source>These books were also changed on another computer. Both sets of changes are in now. Where they touched the same thing, one was kept; choose the other where it is the right one.</source>
        <translation>यह बहीखाता दूसरे कंप्यूटर पर भी बदला गया था। दोनों के बदलाव अब इसमें हैं। जहाँ दोनों ने एक ही चीज़ बदली, वहाँ एक रखा गया; जहाँ दूसरा सही हो, उसे चुनें।</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>हो गया</translation>
    </message>
    <message>
        <source>Leave As It Is</source>
        <translation>ऐसे ही रहने दें</translation>
    </message>
    <message>
        <source>This computer: %1</source>
        <translation>यह कंप्यूटर: %1</translation>
    </message>
    <message>
        <source>The other one: %1</source>
        <translation>दूसरा कंप्यूटर: %1</translation>
    </message>
    <message>
        <source>There is no choice here: a client has this document, or another record depends on it.</source>
        <translation>यहाँ चुनने को कुछ नहीं है: यह दस्तावेज़ ग्राहक के पास है, या कोई और रिकॉर्ड इस पर टिका है।</translation>
    </message>
</context>
<context>
    <name>tamba::CreditNoteSheet</name>
    <message>
        <source>Credit Note</source>
        <translation>क्रेडिट नोट</translation>
    </message>
    <message>
        <source>For %1 of %2. Take out lines, or lower their amounts, to credit a part.</source>
        <translation>%2 के %1 के लिए। किसी एक हिस्से के लिए पंक्तियाँ हटाएँ या उनकी रक़म घटाएँ।</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>कारण</translation>
    </message>
    <message>
        <source>Sales return</source>
        <translation>बिक्री वापसी</translation>
    </message>
    <message>
        <source>Discount after the sale</source>
        <translation>बिक्री के बाद छूट</translation>
    </message>
    <message>
        <source>Deficiency in services</source>
        <translation>सेवा में कमी</translation>
    </message>
    <message>
        <source>Correction of the invoice</source>
        <translation>इनवॉइस में सुधार</translation>
    </message>
    <message>
        <source>Change of place of supply</source>
        <translation>आपूर्ति के स्थान में बदलाव</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>अन्य</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Total with tax</source>
        <translation>कर सहित कुल</translation>
    </message>
    <message>
        <source>Issue Credit Note</source>
        <translation>क्रेडिट नोट जारी करें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Keep as Draft</source>
        <translation>ड्राफ़्ट रखें</translation>
    </message>
    <message>
        <source>LINE</source>
        <translation>पंक्ति</translation>
    </message>
    <message>
        <source>TAX</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>AMOUNT WITHOUT TAX</source>
        <translation>कर के बिना रक़म</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>पंक्ति %1</translation>
    </message>
    <message>
        <source>Amount of %1</source>
        <translation>%1 की रक़म</translation>
    </message>
    <message>
        <source>Enter an amount such as 1,180.00.</source>
        <translation>1,180.00 जैसी रक़म लिखें।</translation>
    </message>
    <message>
        <source>Leaves %1 of the invoice to be paid</source>
        <translation>इनवॉइस के %1 बाकी रहेंगे</translation>
    </message>
    <message>
        <source>Makes a refund of %1 due</source>
        <translation>%1 लौटाने होंगे</translation>
    </message>
    <message>
        <source>Nothing of the invoice is left to be paid</source>
        <translation>इनवॉइस का कुछ भी बाकी नहीं रहता</translation>
    </message>
</context>
<context>
    <name>tamba::DateTile</name>
    <message>
        <source>%1 to mend before it is sent</source>
        <translation>%1: भेजने से पहले ठीक करें</translation>
    </message>
    <message>
        <source>%1, due %2, %3</source>
        <translation>%1, देय %2, %3</translation>
    </message>
</context>
<context>
    <name>tamba::DocumentActions</name>
    <message>
        <source>Issue…</source>
        <translation>जारी करें…</translation>
    </message>
    <message>
        <source>Send…</source>
        <translation>भेजें…</translation>
    </message>
    <message>
        <source>Record Payment…</source>
        <translation>भुगतान दर्ज करें…</translation>
    </message>
    <message>
        <source>Send Reminder…</source>
        <translation>याद दिलाएँ…</translation>
    </message>
    <message>
        <source>Credit Note…</source>
        <translation>क्रेडिट नोट…</translation>
    </message>
    <message>
        <source>Mark as Accepted</source>
        <translation>मंज़ूर हुआ</translation>
    </message>
    <message>
        <source>Mark as Declined</source>
        <translation>नामंज़ूर हुआ</translation>
    </message>
    <message>
        <source>Make Invoice</source>
        <translation>इनवॉइस बनाएँ</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>नक़ल बनाएँ</translation>
    </message>
    <message>
        <source>Save PDF…</source>
        <translation>PDF सहेजें…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>छापें…</translation>
    </message>
    <message>
        <source>Void…</source>
        <translation>निरस्त करें…</translation>
    </message>
    <message>
        <source>Delete Draft</source>
        <translation>ड्राफ़्ट हटाएँ</translation>
    </message>
    <message>
        <source>Accept Estimate</source>
        <translation>एस्टीमेट मंज़ूर करें</translation>
    </message>
    <message>
        <source>Decline Estimate</source>
        <translation>एस्टीमेट नामंज़ूर करें</translation>
    </message>
    <message>
        <source>Duplicate %1</source>
        <translation>%1 की नक़ल बनाएँ</translation>
    </message>
    <message>
        <source>Draft deleted</source>
        <translation>ड्राफ़्ट हटाया गया</translation>
    </message>
    <message>
        <source>Issue %1</source>
        <translation>%1 जारी करें</translation>
    </message>
    <message>
        <source>Issued as %1</source>
        <translation>%1 के रूप में जारी</translation>
    </message>
    <message>
        <source>Save E-mail</source>
        <translation>ई-मेल सहेजें</translation>
    </message>
    <message>
        <source>Saved. Open “%1” in your mail program to send it.</source>
        <translation>सहेजा गया। भेजने के लिए “%1” को अपने मेल प्रोग्राम में खोलें।</translation>
    </message>
    <message>
        <source>Has the reminder gone?</source>
        <translation>क्या याद दिलाने वाला ई-मेल चला गया?</translation>
    </message>
    <message>
        <source>Has it gone?</source>
        <translation>क्या यह चला गया?</translation>
    </message>
    <message>
        <source>Mark as Reminded</source>
        <translation>याद दिला दिया</translation>
    </message>
    <message>
        <source>Mark as Sent</source>
        <translation>भेज दिया</translation>
    </message>
    <message>
        <source>Record Payment</source>
        <translation>भुगतान दर्ज करें</translation>
    </message>
    <message>
        <source>Remove Payment</source>
        <translation>भुगतान हटाएँ</translation>
    </message>
    <message>
        <source>Payment removed</source>
        <translation>भुगतान हटाया गया</translation>
    </message>
    <message>
        <source>New Credit Note</source>
        <translation>नया क्रेडिट नोट</translation>
    </message>
    <message>
        <source>Issue Credit Note</source>
        <translation>क्रेडिट नोट जारी करें</translation>
    </message>
    <message>
        <source>Void %1</source>
        <translation>%1 निरस्त करें</translation>
    </message>
    <message>
        <source>%1 is void</source>
        <translation>%1 निरस्त हुआ</translation>
    </message>
    <message>
        <source>Save PDF</source>
        <translation>PDF सहेजें</translation>
    </message>
    <message>
        <source>Saved “%1”</source>
        <translation>“%1” सहेजा गया</translation>
    </message>
    <message>
        <source>New %1</source>
        <translation>नया %1</translation>
    </message>
    <message>
        <source>Once the e-mail is sent, mark it here; that, and the steps before it, cannot be undone. The PDF is also in your books, as Invoices/%1.</source>
        <translation>ई-मेल भेजने के बाद यहाँ बता दें; यह और इससे पहले के क़दम वापस नहीं लिए जा सकते। PDF आपके बहीखाते में भी है, Invoices/%1 के नाम से।</translation>
    </message>
</context>
<context>
    <name>tamba::DocumentEditor</name>
    <message>
        <source>Add Billable Expenses…</source>
        <translation>बिल करने योग्य ख़र्च जोड़ें…</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Who is this for?</source>
        <translation>यह किसके लिए है?</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>देय तारीख़</translation>
    </message>
    <message>
        <source>Client’s order number</source>
        <translation>ग्राहक का ऑर्डर नंबर</translation>
    </message>
    <message>
        <source>Place of supply</source>
        <translation>आपूर्ति का स्थान</translation>
    </message>
    <message>
        <source>Under LUT</source>
        <translation>LUT के तहत</translation>
    </message>
    <message>
        <source>Under a letter of undertaking, without IGST</source>
        <translation>लेटर ऑफ़ अंडरटेकिंग के तहत, IGST के बिना</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>मुद्रा</translation>
    </message>
    <message>
        <source>Exchange rate</source>
        <translation>विनिमय दर</translation>
    </message>
    <message>
        <source>Numbered by</source>
        <translation>नंबर शृंखला</translation>
    </message>
    <message>
        <source>Number series</source>
        <translation>नंबर शृंखला</translation>
    </message>
    <message>
        <source>Notes for the client</source>
        <translation>ग्राहक के लिए टिप्पणी</translation>
    </message>
    <message>
        <source>Terms</source>
        <translation>शर्तें</translation>
    </message>
    <message>
        <source>Round the total</source>
        <translation>कुल को पूर्ण करें</translation>
    </message>
    <message>
        <source>Round the total to whole units</source>
        <translation>कुल को पूरे अंकों तक पूर्ण करें</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>%1 बदलें</translation>
    </message>
    <message>
        <source>No client has this name.</source>
        <translation>इस नाम का कोई ग्राहक नहीं है।</translation>
    </message>
    <message>
        <source>No client has this name. Choose “New Client…” to add one.</source>
        <translation>इस नाम का कोई ग्राहक नहीं है। जोड़ने के लिए “नया ग्राहक…” चुनें।</translation>
    </message>
    <message>
        <source>New Client</source>
        <translation>नया ग्राहक</translation>
    </message>
    <message>
        <source>Enter a rate such as 83.25.</source>
        <translation>83.25 जैसी दर लिखें।</translation>
    </message>
    <message>
        <source>Change Exchange Rate</source>
        <translation>विनिमय दर बदलें</translation>
    </message>
    <message>
        <source>Valid until</source>
        <translation>कब तक मान्य</translation>
    </message>
    <message>
        <source>New Client…</source>
        <translation>नया ग्राहक…</translation>
    </message>
    <message>
        <source>Outside India</source>
        <translation>भारत से बाहर</translation>
    </message>
    <message>
        <source>Not chosen</source>
        <translation>चुना नहीं गया</translation>
    </message>
    <message>
        <source>%1 for one %2</source>
        <translation>एक %2 के %1</translation>
    </message>
    <message>
        <source>Will be numbered %1</source>
        <translation>नंबर होगा %1</translation>
    </message>
</context>
<context>
    <name>tamba::DocumentPane</name>
    <message>
        <source>Select a document to see it here.</source>
        <translation>देखने के लिए कोई दस्तावेज़ चुनें।</translation>
    </message>
    <message>
        <source>More</source>
        <translation>और</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>बदलें</translation>
    </message>
    <message>
        <source>Edit (Ctrl+Shift+P)</source>
        <translation>बदलें (Ctrl+Shift+P)</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>झलक</translation>
    </message>
    <message>
        <source>The page as it is printed (Ctrl+Shift+P)</source>
        <translation>पन्ना जैसा छपेगा (Ctrl+Shift+P)</translation>
    </message>
    <message>
        <source>Draft %1</source>
        <translation>ड्राफ़्ट %1</translation>
    </message>
    <message>
        <source>Remove the payment of %1</source>
        <translation>%1 का भुगतान हटाएँ</translation>
    </message>
</context>
<context>
    <name>tamba::DocumentPreview</name>
    <message>
        <source>The document as a page</source>
        <translation>दस्तावेज़ का पन्ना</translation>
    </message>
</context>
<context>
    <name>tamba::DropOverlay</name>
    <message>
        <source>1 receipt</source>
        <translation>1 रसीद</translation>
    </message>
    <message>
        <source>%1 receipts</source>
        <translation>%1 रसीदें</translation>
    </message>
    <message>
        <source>1 statement</source>
        <translation>1 स्टेटमेंट</translation>
    </message>
    <message>
        <source>%1 statements</source>
        <translation>%1 स्टेटमेंट</translation>
    </message>
    <message>
        <source>Drop to add %1 and import %2</source>
        <translation>%1 जोड़ने और %2 लाने के लिए यहाँ छोड़ें</translation>
    </message>
    <message>
        <source>Drop to import this statement</source>
        <translation>यह स्टेटमेंट लाने के लिए यहाँ छोड़ें</translation>
    </message>
    <message>
        <source>Drop to import %1</source>
        <translation>%1 लाने के लिए यहाँ छोड़ें</translation>
    </message>
    <message>
        <source>Drop to add this receipt</source>
        <translation>यह रसीद जोड़ने के लिए यहाँ छोड़ें</translation>
    </message>
    <message>
        <source>Drop to add %1</source>
        <translation>%1 जोड़ने के लिए यहाँ छोड़ें</translation>
    </message>
    <message>
        <source>Receipts become expenses, statements become bank lines.</source>
        <translation>रसीदें ख़र्च बनती हैं और स्टेटमेंट बैंक पंक्तियाँ।</translation>
    </message>
    <message>
        <source>You see each line before it comes into the books. What is there already stays out.</source>
        <translation>हर पंक्ति बहीखाते में आने से पहले दिखाई जाती है। जो पहले से है, वह दोबारा नहीं आता।</translation>
    </message>
    <message>
        <source>Each photo, PDF or saved e-mail is read and becomes an expense.</source>
        <translation>हर फ़ोटो, PDF या सहेजा हुआ ई-मेल पढ़ा जाता है और ख़र्च बनता है।</translation>
    </message>
</context>
<context>
    <name>tamba::ExpenseInspector</name>
    <message>
        <source>Select an expense to see and change it here.</source>
        <translation>देखने और बदलने के लिए कोई ख़र्च चुनें।</translation>
    </message>
    <message>
        <source>Looks Right</source>
        <translation>ठीक लगता है</translation>
    </message>
    <message>
        <source>Vendor</source>
        <translation>विक्रेता</translation>
    </message>
    <message>
        <source>GSTIN</source>
        <translation>GSTIN</translation>
    </message>
    <message>
        <source>GSTIN of the vendor</source>
        <translation>विक्रेता का GSTIN</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>दूरी</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>मुद्रा</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>दर</translation>
    </message>
    <message>
        <source>Exchange rate</source>
        <translation>विनिमय दर</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>Tax included</source>
        <translation>शामिल कर</translation>
    </message>
    <message>
        <source>Claim this tax back</source>
        <translation>इस कर का इनपुट क्रेडिट लें</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Paid by</source>
        <translation>किससे चुकाया</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>तरीका</translation>
    </message>
    <message>
        <source>Repeats</source>
        <translation>दोहराव</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>कभी नहीं</translation>
    </message>
    <message>
        <source>See all…</source>
        <translation>सभी देखें…</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Bill this on to the client</source>
        <translation>ग्राहक के बिल में जोड़ें</translation>
    </message>
    <message>
        <source>Change Notes</source>
        <translation>टिप्पणी बदलें</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>टिप्पणी</translation>
    </message>
    <message>
        <source>Attach a File…</source>
        <translation>फ़ाइल जोड़ें…</translation>
    </message>
    <message>
        <source>Delete Expense</source>
        <translation>ख़र्च हटाएँ</translation>
    </message>
    <message>
        <source>Category for all of them</source>
        <translation>इन सबकी श्रेणी</translation>
    </message>
    <message>
        <source>All Look Right</source>
        <translation>सब ठीक लगते हैं</translation>
    </message>
    <message>
        <source>Delete Them</source>
        <translation>इन्हें हटाएँ</translation>
    </message>
    <message>
        <source>Change Vendor</source>
        <translation>विक्रेता बदलें</translation>
    </message>
    <message>
        <source>Change GSTIN</source>
        <translation>GSTIN बदलें</translation>
    </message>
    <message>
        <source>Change Date</source>
        <translation>तारीख़ बदलें</translation>
    </message>
    <message>
        <source>Change Category</source>
        <translation>श्रेणी बदलें</translation>
    </message>
    <message>
        <source>Change Method</source>
        <translation>तरीका बदलें</translation>
    </message>
    <message>
        <source>Mark as Billable</source>
        <translation>बिल करने योग्य बनाएँ</translation>
    </message>
    <message>
        <source>Mark as Not Billable</source>
        <translation>बिल करने योग्य न रखें</translation>
    </message>
    <message>
        <source>Claim Tax</source>
        <translation>कर का क्रेडिट लें</translation>
    </message>
    <message>
        <source>Do Not Claim Tax</source>
        <translation>कर का क्रेडिट न लें</translation>
    </message>
    <message>
        <source>Enter an amount such as 1,180.00.</source>
        <translation>1,180.00 जैसी रक़म लिखें।</translation>
    </message>
    <message>
        <source>Change Amount</source>
        <translation>रक़म बदलें</translation>
    </message>
    <message>
        <source>Change Tax</source>
        <translation>कर बदलें</translation>
    </message>
    <message>
        <source>Change Currency</source>
        <translation>मुद्रा बदलें</translation>
    </message>
    <message>
        <source>Enter a distance such as 12.5.</source>
        <translation>12.5 जैसी दूरी लिखें।</translation>
    </message>
    <message>
        <source>Change Distance</source>
        <translation>दूरी बदलें</translation>
    </message>
    <message>
        <source>Enter a rate such as 83.25.</source>
        <translation>83.25 जैसी दर लिखें।</translation>
    </message>
    <message>
        <source>Change Exchange Rate</source>
        <translation>विनिमय दर बदलें</translation>
    </message>
    <message>
        <source>Change Repeats</source>
        <translation>दोहराव बदलें</translation>
    </message>
    <message>
        <source>New Client</source>
        <translation>नया ग्राहक</translation>
    </message>
    <message>
        <source>Change Client</source>
        <translation>ग्राहक बदलें</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>नया प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Change Project</source>
        <translation>प्रोजेक्ट बदलें</translation>
    </message>
    <message>
        <source>Mark as Checked</source>
        <translation>जाँचा हुआ मानें</translation>
    </message>
    <message>
        <source>%1 expenses selected</source>
        <translation>%1 ख़र्च चुने गए</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>चुनें…</translation>
    </message>
    <message>
        <source>What the trip was for</source>
        <translation>यात्रा किसलिए थी</translation>
    </message>
    <message>
        <source>Who was paid</source>
        <translation>किसे भुगतान किया</translation>
    </message>
    <message>
        <source>%1 in the books</source>
        <translation>बहीखाते में %1</translation>
    </message>
    <message>
        <source>Add the exchange rate to include this in reports.</source>
        <translation>इसे रिपोर्ट में शामिल करने के लिए विनिमय दर लिखें।</translation>
    </message>
    <message>
        <source>%1 for one %2</source>
        <translation>एक %2 के %1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>कोई नहीं</translation>
    </message>
    <message>
        <source>%1 for each %2, as it was then</source>
        <translation>हर %2 के %1, जो तब दर थी</translation>
    </message>
    <message>
        <source>Convert to Rupees</source>
        <translation>रुपये में बदलें</translation>
    </message>
    <message>
        <source>Convert to %1</source>
        <translation>%1 में बदलें</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>रुका हुआ</translation>
    </message>
    <message>
        <source>Next on %1</source>
        <translation>अगली बार %1</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>कोई प्रोजेक्ट नहीं</translation>
    </message>
    <message>
        <source>New Project…</source>
        <translation>नया प्रोजेक्ट…</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>कोई ग्राहक नहीं</translation>
    </message>
    <message>
        <source>New Client…</source>
        <translation>नया ग्राहक…</translation>
    </message>
    <message>
        <source>Valid</source>
        <translation>मान्य</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1 दिखाएँ</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 हटाएँ</translation>
    </message>
    <message>
        <source>Attach File</source>
        <translation>फ़ाइल जोड़ें</translation>
    </message>
    <message>
        <source>Remove this receipt?</source>
        <translation>यह रसीद हटाएँ?</translation>
    </message>
    <message>
        <source>“%1” moves to the Removed folder of your books. This step, and those before it, cannot be undone.</source>
        <translation>“%1” आपके बहीखाते के Removed फ़ोल्डर में चली जाती है। यह और इससे पहले के क़दम वापस नहीं लिए जा सकते।</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>हटाएँ</translation>
    </message>
    <message>
        <source>Remove Receipt</source>
        <translation>रसीद हटाएँ</translation>
    </message>
    <message>
        <source>Project for all of them</source>
        <translation>इन सबका प्रोजेक्ट</translation>
    </message>
</context>
<context>
    <name>tamba::ExpensesPage</name>
    <message>
        <source>Dates on receipts</source>
        <translation>रसीदों पर तारीख़</translation>
    </message>
    <message>
        <source>Day first · 14/10/2026</source>
        <translation>पहले दिन · 14/10/2026</translation>
    </message>
    <message>
        <source>Month first · 10/14/2026</source>
        <translation>पहले महीना · 10/14/2026</translation>
    </message>
    <message>
        <source>Year first · 2026/10/14</source>
        <translation>पहले साल · 2026/10/14</translation>
    </message>
    <message>
        <source>Mileage rate</source>
        <translation>यात्रा की दर</translation>
    </message>
    <message>
        <source>Distance unit</source>
        <translation>दूरी की इकाई</translation>
    </message>
    <message>
        <source>A new rate counts for trips entered from now on.</source>
        <translation>नई दर आगे लिखी जाने वाली यात्राओं पर लगती है।</translation>
    </message>
    <message>
        <source>Enter an amount such as 10.00.</source>
        <translation>10.00 जैसी रक़म लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::ExpensesScreen</name>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Vendor</source>
        <translation>विक्रेता</translation>
    </message>
    <message>
        <source>No vendor</source>
        <translation>कोई विक्रेता नहीं</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>तरीका</translation>
    </message>
    <message>
        <source>Has a receipt</source>
        <translation>रसीद है</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>Add Receipts…</source>
        <translation>रसीदें जोड़ें…</translation>
    </message>
    <message>
        <source>New Expense</source>
        <translation>नया ख़र्च</translation>
    </message>
    <message>
        <source>New expense (Ctrl+N)</source>
        <translation>नया ख़र्च (Ctrl+N)</translation>
    </message>
    <message>
        <source>Search expenses</source>
        <translation>ख़र्च खोजें</translation>
    </message>
    <message>
        <source>Search vendor, amount, notes, receipt text</source>
        <translation>विक्रेता, रक़म, टिप्पणी, रसीद का पाठ खोजें</translation>
    </message>
    <message>
        <source>Input tax %1</source>
        <translation>इनपुट टैक्स %1</translation>
    </message>
    <message>
        <source>Start with the receipts on your desk</source>
        <translation>अपनी मेज़ पर रखी रसीदों से शुरू करें</translation>
    </message>
    <message>
        <source>Drop photos, PDFs or saved e-mails anywhere on this window, and each becomes an expense.</source>
        <translation>फ़ोटो, PDF या सहेजे हुए ई-मेल इस विंडो पर कहीं भी छोड़ें; हर एक से एक ख़र्च बनता है।</translation>
    </message>
    <message>
        <source>Explore the Sample Books</source>
        <translation>नमूना बहीखाता देखें</translation>
    </message>
    <message>
        <source>Nothing here</source>
        <translation>यहाँ कुछ नहीं है</translation>
    </message>
    <message>
        <source>No expense fits this search, period and list.</source>
        <translation>इस खोज, अवधि और सूची में कोई ख़र्च नहीं है।</translation>
    </message>
    <message>
        <source>Show All Expenses</source>
        <translation>सभी ख़र्च दिखाएँ</translation>
    </message>
    <message>
        <source>New Mileage Trip</source>
        <translation>नई यात्रा</translation>
    </message>
    <message>
        <source>Delete Expense</source>
        <translation>ख़र्च हटाएँ</translation>
    </message>
    <message>
        <source>Delete %1 Expenses</source>
        <translation>%1 ख़र्च हटाएँ</translation>
    </message>
    <message>
        <source>Expense deleted</source>
        <translation>ख़र्च हटाया गया</translation>
    </message>
    <message>
        <source>%1 expenses deleted</source>
        <translation>%1 ख़र्च हटाए गए</translation>
    </message>
    <message>
        <source>Set Category</source>
        <translation>श्रेणी चुनें</translation>
    </message>
    <message>
        <source>Looks Right</source>
        <translation>ठीक लगता है</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>कॉपी करें</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>हटाएँ</translation>
    </message>
</context>
<context>
    <name>tamba::FolderActions</name>
    <message>
        <source>Copying the books</source>
        <translation>बहीखाते की नक़ल हो रही है</translation>
    </message>
    <message>
        <source>The books have moved</source>
        <translation>बहीखाता नई जगह पर है</translation>
    </message>
    <message>
        <source>They are in %1 now, and every file has been compared. The old folder, %2, still holds a copy.</source>
        <translation>अब वह %1 में है और हर फ़ाइल की तुलना कर ली गई है। पुराने फ़ोल्डर %2 में उसकी एक नक़ल अब भी है।</translation>
    </message>
    <message>
        <source>Move the Old One to the Trash</source>
        <translation>पुराना फ़ोल्डर रद्दी में डालें</translation>
    </message>
    <message>
        <source>The old folder could not be moved to the trash. You can delete it yourself: %1</source>
        <translation>पुराना फ़ोल्डर रद्दी में नहीं डाला जा सका। आप उसे स्वयं हटा सकते हैं: %1</translation>
    </message>
</context>
<context>
    <name>tamba::FolderPage</name>
    <message>
        <source>Folder</source>
        <translation>फ़ोल्डर</translation>
    </message>
    <message>
        <source>Show in the File Manager</source>
        <translation>फ़ाइल मैनेजर में दिखाएँ</translation>
    </message>
    <message>
        <source>Everything is in this folder: books, receipts, invoices, backups. Copy it, and you have copied all.</source>
        <translation>सब कुछ इसी फ़ोल्डर में है: बहीखाता, रसीदें, इनवॉइस, बैकअप। इसकी नक़ल में सब कुछ आ जाता है।</translation>
    </message>
    <message>
        <source>Elsewhere</source>
        <translation>दूसरी जगह</translation>
    </message>
    <message>
        <source>Move the Books…</source>
        <translation>बहीखाता कहीं और रखें…</translation>
    </message>
    <message>
        <source>Copies the folder, compares every file, and goes on there. You are asked about the old folder.</source>
        <translation>फ़ोल्डर की नक़ल बनती है, हर फ़ाइल की तुलना होती है और काम वहीं से चलता है। पुराने फ़ोल्डर के बारे में आपसे पूछा जाता है।</translation>
    </message>
    <message>
        <source>Open Other Books…</source>
        <translation>दूसरा बहीखाता खोलें…</translation>
    </message>
    <message>
        <source>Another business, or the same on a disk that other computers use, too.</source>
        <translation>किसी दूसरे व्यवसाय का, या ऐसी डिस्क पर जो दूसरे कंप्यूटर भी काम में लेते हैं।</translation>
    </message>
    <message>
        <source>Backups</source>
        <translation>बैकअप</translation>
    </message>
    <message>
        <source>Restore a Backup…</source>
        <translation>बैकअप से लौटाएँ…</translation>
    </message>
    <message>
        <source>One is kept of each of the last fourteen days of work, as the day began and as it was first saved.</source>
        <translation>पिछले चौदह कार्य-दिवसों में हर दिन का एक बैकअप रहता है: जैसा दिन की शुरुआत में था और जैसा पहली बार सहेजा गया।</translation>
    </message>
</context>
<context>
    <name>tamba::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>मार्गदर्शिका</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>पन्ने</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>विषय-सूची</translation>
    </message>
</context>
<context>
    <name>tamba::ImportSheet</name>
    <message>
        <source>Row</source>
        <translation>पंक्ति</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Narration</source>
        <translation>विवरण</translation>
    </message>
    <message>
        <source>Money out</source>
        <translation>निकासी</translation>
    </message>
    <message>
        <source>Money in</source>
        <translation>जमा</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>शेष</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>क्यों</translation>
    </message>
    <message>
        <source>Added anyway</source>
        <translation>फिर भी जोड़ी गई</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>छोड़ी गई</translation>
    </message>
    <message>
        <source>Import Statement</source>
        <translation>स्टेटमेंट लाएँ</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>लाएँ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>खाता</translation>
    </message>
    <message>
        <source>Choose the account…</source>
        <translation>खाता चुनें…</translation>
    </message>
    <message>
        <source>Name of the new account</source>
        <translation>नए खाते का नाम</translation>
    </message>
    <message>
        <source>Name of the account, such as HDFC Current</source>
        <translation>खाते का नाम, जैसे HDFC चालू</translation>
    </message>
    <message>
        <source>Currency of the new account</source>
        <translation>नए खाते की मुद्रा</translation>
    </message>
    <message>
        <source>How the dates are written</source>
        <translation>तारीख़ें कैसे लिखी हैं</translation>
    </message>
    <message>
        <source>Day first (31/12/2026)</source>
        <translation>पहले दिन (31/12/2026)</translation>
    </message>
    <message>
        <source>Month first (12/31/2026)</source>
        <translation>पहले महीना (12/31/2026)</translation>
    </message>
    <message>
        <source>Year first (2026/12/31)</source>
        <translation>पहले साल (2026/12/31)</translation>
    </message>
    <message>
        <source>Dates</source>
        <translation>तारीख़ें</translation>
    </message>
    <message>
        <source>The file as it was read</source>
        <translation>फ़ाइल जैसी पढ़ी गई</translation>
    </message>
    <message>
        <source>What column %1 is</source>
        <translation>कॉलम %1 में क्या है</translation>
    </message>
    <message>
        <source>Charges are printed as positive amounts</source>
        <translation>ख़र्च धनात्मक रक़म के रूप में छपे हैं</translation>
    </message>
    <message>
        <source>Which rows are shown</source>
        <translation>कौन-सी पंक्तियाँ दिखें</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>पंक्तियाँ</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>New account…</source>
        <translation>नया खाता…</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 पढ़ा जा रहा है</translation>
    </message>
    <message>
        <source>… and %1 more</source>
        <translation>… और %1 अन्य</translation>
    </message>
    <message>
        <source>Will be added</source>
        <translation>जोड़ी जाएँगी</translation>
    </message>
    <message>
        <source>Already in the books</source>
        <translation>पहले से बहीखाते में</translation>
    </message>
    <message>
        <source>Skipped rows</source>
        <translation>छोड़ी गई पंक्तियाँ</translation>
    </message>
    <message>
        <source>Balance breaks</source>
        <translation>शेष का अंतर</translation>
    </message>
    <message>
        <source>Row as printed</source>
        <translation>पंक्ति जैसी छपी है</translation>
    </message>
    <message>
        <source>In the books as</source>
        <translation>बहीखाते में ऐसी</translation>
    </message>
    <message>
        <source>There is an account of that name already.</source>
        <translation>इस नाम का खाता पहले से है।</translation>
    </message>
    <message>
        <source>Import 1 Line</source>
        <translation>1 पंक्ति लाएँ</translation>
    </message>
    <message>
        <source>Import %1 Lines</source>
        <translation>%1 पंक्तियाँ लाएँ</translation>
    </message>
    <message>
        <source>Say which account this statement is of.</source>
        <translation>बताएँ कि यह किस खाते का स्टेटमेंट है।</translation>
    </message>
    <message>
        <source>Repeated in this file</source>
        <translation>इसी फ़ाइल में दोहराई गईं</translation>
    </message>
    <message>
        <source>Already there</source>
        <translation>पहले से मौजूद</translation>
    </message>
</context>
<context>
    <name>tamba::InvoicesPage</name>
    <message>
        <source>Logo</source>
        <translation>लोगो</translation>
    </message>
    <message>
        <source>Accent colour</source>
        <translation>मुख्य रंग</translation>
    </message>
    <message>
        <source>New invoices</source>
        <translation>नए इनवॉइस</translation>
    </message>
    <message>
        <source>Due after</source>
        <translation>देय अवधि</translation>
    </message>
    <message>
        <source>Days. A client can have their own.</source>
        <translation>दिन। किसी ग्राहक के अपने अलग दिन भी हो सकते हैं।</translation>
    </message>
    <message>
        <source>Tax on new lines</source>
        <translation>नई पंक्तियों पर कर</translation>
    </message>
    <message>
        <source>Each line can carry its own rate. Tax is worked out per line and rounded half-up.</source>
        <translation>हर पंक्ति की अपनी दर हो सकती है। कर हर पंक्ति पर अलग निकाला जाता है और आधा ऊपर की ओर पूर्ण होता है।</translation>
    </message>
    <message>
        <source>Round totals to whole</source>
        <translation>कुल को पूर्ण करें, इकाई</translation>
    </message>
    <message>
        <source>(shows a round-off line)</source>
        <translation>(राउंड-ऑफ़ की पंक्ति दिखती है)</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>शब्द</translation>
    </message>
    <message>
        <source>Terms</source>
        <translation>शर्तें</translation>
    </message>
    <message>
        <source>Footer</source>
        <translation>पाद लेख</translation>
    </message>
    <message>
        <source>Signed by</source>
        <translation>हस्ताक्षर</translation>
    </message>
    <message>
        <source>Enter a number of days such as 15.</source>
        <translation>15 जैसी दिनों की संख्या लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::InvoicesScreen</name>
    <message>
        <source>Number</source>
        <translation>नंबर</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>कोई ग्राहक नहीं</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>कुल</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>स्थिति</translation>
    </message>
    <message>
        <source>Kind of document</source>
        <translation>दस्तावेज़ का प्रकार</translation>
    </message>
    <message>
        <source>Search documents</source>
        <translation>दस्तावेज़ खोजें</translation>
    </message>
    <message>
        <source>Search number, client, amount, lines</source>
        <translation>नंबर, ग्राहक, रक़म, पंक्तियाँ खोजें</translation>
    </message>
    <message>
        <source>Total of what was issued, in your home currency</source>
        <translation>जारी किए गए दस्तावेज़ों का कुल, आपकी घरेलू मुद्रा में</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>दस्तावेज़</translation>
    </message>
    <message>
        <source>%1 (Ctrl+N)</source>
        <translation>%1 (Ctrl+N)</translation>
    </message>
    <message>
        <source>%1 due</source>
        <translation>%1 बकाया</translation>
    </message>
    <message>
        <source>Nothing here</source>
        <translation>यहाँ कुछ नहीं है</translation>
    </message>
    <message>
        <source>No document fits this search, period and status.</source>
        <translation>इस खोज, अवधि और स्थिति में कोई दस्तावेज़ नहीं है।</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>सब दिखाएँ</translation>
    </message>
    <message>
        <source>Bill your first client</source>
        <translation>अपने पहले ग्राहक को बिल दें</translation>
    </message>
    <message>
        <source>Choose who it is for, type what you did, and the invoice is ready to send.</source>
        <translation>चुनें कि किसके लिए है, लिखें कि आपने क्या किया, और इनवॉइस भेजने को तैयार है।</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>नया इनवॉइस</translation>
    </message>
    <message>
        <source>Say what it will cost</source>
        <translation>बताएँ कि कितना लगेगा</translation>
    </message>
    <message>
        <source>An estimate that is accepted becomes an invoice with one click.</source>
        <translation>मंज़ूर हुआ एस्टीमेट एक क्लिक में इनवॉइस बन जाता है।</translation>
    </message>
    <message>
        <source>New Estimate</source>
        <translation>नया एस्टीमेट</translation>
    </message>
    <message>
        <source>No credit notes</source>
        <translation>कोई क्रेडिट नोट नहीं</translation>
    </message>
    <message>
        <source>When an invoice was too high, open it and choose “Credit Note…”: it is made from it.</source>
        <translation>इनवॉइस की रक़म ज़्यादा हो गई हो तो उसे खोलें और “क्रेडिट नोट…” चुनें: वह उसी से बनता है।</translation>
    </message>
    <message>
        <source>Show Invoices</source>
        <translation>इनवॉइस दिखाएँ</translation>
    </message>
    <message>
        <source>A credit note begins at its invoice: open it and choose “Credit Note…”.</source>
        <translation>क्रेडिट नोट इनवॉइस से शुरू होता है: उसे खोलें और “क्रेडिट नोट…” चुनें।</translation>
    </message>
    <message>
        <source>Delete Draft</source>
        <translation>ड्राफ़्ट हटाएँ</translation>
    </message>
    <message>
        <source>Draft %1 deleted</source>
        <translation>ड्राफ़्ट %1 हटाया गया</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>कॉपी करें</translation>
    </message>
</context>
<context>
    <name>tamba::IssueSheet</name>
    <message>
        <source>Issue This %1</source>
        <translation>यह %1 जारी करें</translation>
    </message>
    <message>
        <source>It gets its number and can no longer be changed, only voided. Steps taken before cannot be undone any more.</source>
        <translation>इसे नंबर मिल जाता है और फिर इसे बदला नहीं, केवल निरस्त किया जा सकता है। इससे पहले के क़दम वापस नहीं लिए जा सकेंगे।</translation>
    </message>
    <message>
        <source>For</source>
        <translation>किसके लिए</translation>
    </message>
    <message>
        <source>Nobody yet</source>
        <translation>अभी कोई नहीं</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Valid until</source>
        <translation>कब तक मान्य</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>देय तारीख़</translation>
    </message>
    <message>
        <source>Will be numbered</source>
        <translation>नंबर होगा</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>कुल</translation>
    </message>
    <message>
        <source>Issue</source>
        <translation>जारी करें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Not yet</source>
        <translation>अभी नहीं</translation>
    </message>
</context>
<context>
    <name>tamba::ItemTile</name>
    <message>
        <source>Send Reminder</source>
        <translation>याद दिलाएँ</translation>
    </message>
</context>
<context>
    <name>tamba::ItemsPage</name>
    <message>
        <source>Items</source>
        <translation>आइटम</translation>
    </message>
    <message>
        <source>Add Item</source>
        <translation>आइटम जोड़ें</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>हटाएँ</translation>
    </message>
    <message>
        <source>What you bill again and again. Type its name in a line of an invoice.</source>
        <translation>जो आप बार-बार बिल करते हैं। इनवॉइस की पंक्ति में बस उसका नाम लिखें।</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>ब्योरा</translation>
    </message>
    <message>
        <source>HSN or SAC</source>
        <translation>HSN या SAC</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>इकाई</translation>
    </message>
    <message>
        <source>day, hour, piece</source>
        <translation>दिन, घंटा, नग</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>दर</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>New item</source>
        <translation>नया आइटम</translation>
    </message>
    <message>
        <source>Enter an amount such as 1,180.00.</source>
        <translation>1,180.00 जैसी रक़म लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::LineRow</name>
    <message>
        <source>%1, line %2</source>
        <translation>%1, पंक्ति %2</translation>
    </message>
    <message>
        <source>Details, line %1</source>
        <translation>ब्योरा, पंक्ति %1</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>ब्योरा</translation>
    </message>
    <message>
        <source>Amount, line %1</source>
        <translation>रक़म, पंक्ति %1</translation>
    </message>
    <message>
        <source>More for line %1</source>
        <translation>पंक्ति %1 के लिए और</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>आइटम</translation>
    </message>
    <message>
        <source>Add an item</source>
        <translation>आइटम जोड़ें</translation>
    </message>
    <message>
        <source>Enter a quantity such as 2.5.</source>
        <translation>2.5 जैसी मात्रा लिखें।</translation>
    </message>
    <message>
        <source>Enter a price such as 1,180.00, or a sum such as 3*1200.</source>
        <translation>1,180.00 जैसी दर या 3*1200 जैसा हिसाब लिखें।</translation>
    </message>
    <message>
        <source>Enter a percentage from 0 to 100.</source>
        <translation>0 से 100 तक प्रतिशत लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::LinesTable</name>
    <message>
        <source>Lines</source>
        <translation>पंक्तियाँ</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>%1 per %2</source>
        <translation>%1 प्रति %2</translation>
    </message>
    <message>
        <source>Update the Saved Item</source>
        <translation>सहेजा हुआ आइटम बदलें</translation>
    </message>
    <message>
        <source>Save as Item</source>
        <translation>आइटम के रूप में सहेजें</translation>
    </message>
    <message>
        <source>Move Up	Alt+Up</source>
        <translation>ऊपर ले जाएँ	Alt+Up</translation>
    </message>
    <message>
        <source>Move Down	Alt+Down</source>
        <translation>नीचे ले जाएँ	Alt+Down</translation>
    </message>
    <message>
        <source>Remove Line	Ctrl+Delete</source>
        <translation>पंक्ति हटाएँ	Ctrl+Delete</translation>
    </message>
    <message>
        <source>Save Item</source>
        <translation>आइटम सहेजें</translation>
    </message>
    <message>
        <source>“%1” is in your catalogue now</source>
        <translation>“%1” अब आपकी आइटम-सूची में है</translation>
    </message>
</context>
<context>
    <name>tamba::LogoField</name>
    <message>
        <source>Choose…</source>
        <translation>चुनें…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>हटाएँ</translation>
    </message>
    <message>
        <source>No picture</source>
        <translation>कोई चित्र नहीं</translation>
    </message>
    <message>
        <source>None</source>
        <translation>कोई नहीं</translation>
    </message>
</context>
<context>
    <name>tamba::MailSheet</name>
    <message>
        <source>Remind About %1</source>
        <translation>%1 की याद दिलाएँ</translation>
    </message>
    <message>
        <source>Send %1</source>
        <translation>%1 भेजें</translation>
    </message>
    <message>
        <source>To</source>
        <translation>सेवा में</translation>
    </message>
    <message>
        <source>name@example.com</source>
        <translation>name@example.com</translation>
    </message>
    <message>
        <source>Tone</source>
        <translation>लहज़ा</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>विषय</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>संदेश</translation>
    </message>
    <message>
        <source>Attached</source>
        <translation>संलग्न</translation>
    </message>
    <message>
        <source>Open in Mail Program</source>
        <translation>मेल प्रोग्राम में खोलें</translation>
    </message>
    <message>
        <source>Save E-mail…</source>
        <translation>ई-मेल सहेजें…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
</context>
<context>
    <name>tamba::MileageSheet</name>
    <message>
        <source>New Mileage Trip</source>
        <translation>नई यात्रा</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Trip</source>
        <translation>यात्रा</translation>
    </message>
    <message>
        <source>Studio to the printer and back</source>
        <translation>स्टूडियो से प्रिंटर तक और वापस</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>दूरी</translation>
    </message>
    <message>
        <source>Distance (%1)</source>
        <translation>दूरी (%1)</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Add Trip</source>
        <translation>यात्रा जोड़ें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>%1 for each %2</source>
        <translation>हर %2 के %1</translation>
    </message>
    <message>
        <source>Enter a distance such as 12.5.</source>
        <translation>12.5 जैसी दूरी लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::NumberingPage</name>
    <message>
        <source>Add a Series for</source>
        <translation>इसके लिए शृंखला जोड़ें</translation>
    </message>
    <message>
        <source>Kind of document</source>
        <translation>दस्तावेज़ का प्रकार</translation>
    </message>
    <message>
        <source>How numbers are made</source>
        <translation>नंबर कैसे बनते हैं</translation>
    </message>
    <message>
        <source>Tokens: {FY} 26-27, {YYYY}, {YY}, {MM}, and {###} for the counter (one # per digit). With a year token the count restarts each year. Drafts get a number only when issued, and issued documents can only be voided, so the series never has gaps.</source>
        <translation>चिह्न: {FY} 26-27, {YYYY}, {YY}, {MM}, और गिनती के लिए {###} (हर अंक का एक #)। साल का चिह्न हो तो गिनती हर साल फिर से शुरू होती है। ड्राफ़्ट को नंबर जारी होने पर ही मिलता है, और जारी दस्तावेज़ केवल निरस्त किए जा सकते हैं, इसलिए शृंखला में कोई नंबर नहीं छूटता।</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>Name of a series</source>
        <translation>शृंखला का नाम</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>नमूना</translation>
    </message>
    <message>
        <source>Next counter</source>
        <translation>अगली गिनती</translation>
    </message>
    <message>
        <source>next counter</source>
        <translation>अगली गिनती</translation>
    </message>
    <message>
        <source>Remove This Series</source>
        <translation>यह शृंखला हटाएँ</translation>
    </message>
    <message>
        <source>Enter a number from 1 to 999,999,999.</source>
        <translation>1 से 999,999,999 तक की संख्या लिखें।</translation>
    </message>
    <message>
        <source>A series needs a name.</source>
        <translation>शृंखला का नाम होना चाहिए।</translation>
    </message>
    <message>
        <source>Enter a name, and a pattern such as A/{FY}/{###}.</source>
        <translation>नाम लिखें, और A/{FY}/{###} जैसा नमूना।</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>अगला: %1</translation>
    </message>
</context>
<context>
    <name>tamba::OverviewScreen</name>
    <message>
        <source>Your books begin here</source>
        <translation>आपका बहीखाता यहाँ से शुरू होता है</translation>
    </message>
    <message>
        <source>Drop receipts or a bank statement anywhere on this window, or write an invoice. What you are owed, what you earn and which dates come up is then told here.</source>
        <translation>रसीदें या बैंक स्टेटमेंट इस विंडो पर कहीं भी छोड़ें, या इनवॉइस बनाएँ। फिर यहाँ दिखेगा कि आपको कितना मिलना है, आप कितना कमाते हैं और कौन-सी तारीख़ें आ रही हैं।</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>नया इनवॉइस</translation>
    </message>
    <message>
        <source>Explore the Sample Books</source>
        <translation>नमूना बहीखाता देखें</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>एक नज़र में</translation>
    </message>
    <message>
        <source>Add Receipts…</source>
        <translation>रसीदें जोड़ें…</translation>
    </message>
    <message>
        <source>New invoice (Ctrl+N)</source>
        <translation>नया इनवॉइस (Ctrl+N)</translation>
    </message>
    <message>
        <source>Needs you</source>
        <translation>आपका काम बाकी</translation>
    </message>
    <message>
        <source>Nothing waits for you.</source>
        <translation>आपके लिए कुछ बाकी नहीं है।</translation>
    </message>
    <message>
        <source>Twelve months</source>
        <translation>बारह महीने</translation>
    </message>
    <message>
        <source>Income and spending of the last twelve months</source>
        <translation>पिछले बारह महीनों की आय और ख़र्च</translation>
    </message>
    <message>
        <source>Coming up</source>
        <translation>आगे आने वाला</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>आय</translation>
    </message>
    <message>
        <source>Spending</source>
        <translation>ख़र्च</translation>
    </message>
</context>
<context>
    <name>tamba::PaymentPage</name>
    <message>
        <source>UPI ID</source>
        <translation>UPI ID</translation>
    </message>
    <message>
        <source>name@handle</source>
        <translation>name@handle</translation>
    </message>
    <message>
        <source>Print a code to pay with on invoices</source>
        <translation>इनवॉइस पर भुगतान का कोड छापें</translation>
    </message>
    <message>
        <source>UPI code</source>
        <translation>UPI कोड</translation>
    </message>
    <message>
        <source>Bank account</source>
        <translation>बैंक खाता</translation>
    </message>
    <message>
        <source>Account name</source>
        <translation>खाते में नाम</translation>
    </message>
    <message>
        <source>Account number</source>
        <translation>खाता संख्या</translation>
    </message>
    <message>
        <source>Bank</source>
        <translation>बैंक</translation>
    </message>
    <message>
        <source>IFSC</source>
        <translation>IFSC</translation>
    </message>
    <message>
        <source>SWIFT</source>
        <translation>SWIFT</translation>
    </message>
    <message>
        <source>IBAN</source>
        <translation>IBAN</translation>
    </message>
    <message>
        <source>This one asks for ₹1.00: scan it to see that your name comes up. On an invoice it asks for what is due.</source>
        <translation>यह कोड ₹1.00 माँगता है: स्कैन करके देख लें कि आपका ही नाम आता है। इनवॉइस पर यह बकाया रक़म माँगता है।</translation>
    </message>
    <message>
        <source>The code appears here once the UPI ID is complete.</source>
        <translation>UPI ID पूरी होते ही कोड यहाँ दिखेगा।</translation>
    </message>
</context>
<context>
    <name>tamba::PaymentSheet</name>
    <message>
        <source>Record a Payment</source>
        <translation>भुगतान दर्ज करें</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>मिली रक़म</translation>
    </message>
    <message>
        <source>TDS held back</source>
        <translation>काटा गया TDS</translation>
    </message>
    <message>
        <source>%1 of the value without GST</source>
        <translation>GST के बिना मूल्य का %1</translation>
    </message>
    <message>
        <source>%1 TDS</source>
        <translation>%1 TDS</translation>
    </message>
    <message>
        <source>None</source>
        <translation>कोई नहीं</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>तारीख़</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>तरीका</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>संदर्भ</translation>
    </message>
    <message>
        <source>UTR or cheque number</source>
        <translation>UTR या चेक नंबर</translation>
    </message>
    <message>
        <source>Record Payment</source>
        <translation>भुगतान दर्ज करें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Enter an amount such as 1,180.00.</source>
        <translation>1,180.00 जैसी रक़म लिखें।</translation>
    </message>
    <message>
        <source>Settles the invoice</source>
        <translation>इनवॉइस का भुगतान पूरा होता है</translation>
    </message>
    <message>
        <source>Leaves %1 open</source>
        <translation>%1 बाकी रहते हैं</translation>
    </message>
    <message>
        <source>%1 · %2 · %3 due</source>
        <translation>%1 · %2 · %3 बकाया</translation>
    </message>
</context>
<context>
    <name>tamba::PeriodPicker</name>
    <message>
        <source>Earlier period</source>
        <translation>पिछली अवधि</translation>
    </message>
    <message>
        <source>Later period</source>
        <translation>अगली अवधि</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>अवधि</translation>
    </message>
    <message>
        <source>All Time</source>
        <translation>पूरा समय</translation>
    </message>
    <message>
        <source>This Month</source>
        <translation>यह महीना</translation>
    </message>
    <message>
        <source>Last Month</source>
        <translation>पिछला महीना</translation>
    </message>
    <message>
        <source>This Quarter</source>
        <translation>यह तिमाही</translation>
    </message>
    <message>
        <source>Last Quarter</source>
        <translation>पिछली तिमाही</translation>
    </message>
</context>
<context>
    <name>tamba::ProjectsScreen</name>
    <message>
        <source>Project</source>
        <translation>प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>ग्राहक</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>आय</translation>
    </message>
    <message>
        <source>Spending</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>Profit</source>
        <translation>लाभ</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>नया प्रोजेक्ट</translation>
    </message>
    <message>
        <source>New project (Ctrl+N)</source>
        <translation>नया प्रोजेक्ट (Ctrl+N)</translation>
    </message>
    <message>
        <source>Search projects</source>
        <translation>प्रोजेक्ट खोजें</translation>
    </message>
    <message>
        <source>Search project, client</source>
        <translation>प्रोजेक्ट, ग्राहक खोजें</translation>
    </message>
    <message>
        <source>Show archived</source>
        <translation>संग्रह भी दिखाएँ</translation>
    </message>
    <message>
        <source>Documents name no project: a line that bills an expense on counts for that expense’s project, any other for its client’s project where the client has just one.</source>
        <translation>दस्तावेज़ों पर प्रोजेक्ट नहीं लिखा होता: ख़र्च को आगे बिल करने वाली पंक्ति उस ख़र्च के प्रोजेक्ट में गिनी जाती है, बाकी पंक्तियाँ ग्राहक के प्रोजेक्ट में, यदि उसका एक ही प्रोजेक्ट हो।</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>प्रोजेक्ट</translation>
    </message>
    <message>
        <source>Select a project to see what it is made of.</source>
        <translation>कोई प्रोजेक्ट चुनकर देखें कि उसमें क्या-क्या है।</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>नाम</translation>
    </message>
    <message>
        <source>WHAT THE FIGURES COME FROM</source>
        <translation>आँकड़े कहाँ से आते हैं</translation>
    </message>
    <message>
        <source>Documents and expenses of this project</source>
        <translation>इस प्रोजेक्ट के दस्तावेज़ और ख़र्च</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>संग्रह में रखें</translation>
    </message>
    <message>
        <source>Delete Project</source>
        <translation>प्रोजेक्ट हटाएँ</translation>
    </message>
    <message>
        <source>What does a job bring in?</source>
        <translation>काम से कितना मिलता है?</translation>
    </message>
    <message>
        <source>Give expenses a project, and see here what each one earns after its costs.</source>
        <translation>ख़र्चों में प्रोजेक्ट लिखें और यहाँ देखें कि लागत के बाद हर एक से कितनी कमाई होती है।</translation>
    </message>
    <message>
        <source>Nothing here</source>
        <translation>यहाँ कुछ नहीं है</translation>
    </message>
    <message>
        <source>No project fits this search.</source>
        <translation>इस खोज में कोई प्रोजेक्ट नहीं मिला।</translation>
    </message>
    <message>
        <source>Show All Projects</source>
        <translation>सभी प्रोजेक्ट दिखाएँ</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>कोई ग्राहक नहीं</translation>
    </message>
    <message>
        <source>Take Back from Archive</source>
        <translation>संग्रह से वापस लाएँ</translation>
    </message>
    <message>
        <source>NOTHING IN THIS PERIOD</source>
        <translation>इस अवधि में कुछ नहीं</translation>
    </message>
    <message>
        <source>Rename Project</source>
        <translation>प्रोजेक्ट का नाम बदलें</translation>
    </message>
    <message>
        <source>Change Project’s Client</source>
        <translation>प्रोजेक्ट का ग्राहक बदलें</translation>
    </message>
    <message>
        <source>Archive Project</source>
        <translation>प्रोजेक्ट को संग्रह में रखें</translation>
    </message>
    <message>
        <source>Take Back Project</source>
        <translation>प्रोजेक्ट को वापस लाएँ</translation>
    </message>
    <message>
        <source>Project archived</source>
        <translation>प्रोजेक्ट संग्रह में रखा गया</translation>
    </message>
    <message>
        <source>%1 refer to this project.</source>
        <translation>%1 इस प्रोजेक्ट से जुड़े हैं।</translation>
    </message>
    <message>
        <source>Archive %1 instead?</source>
        <translation>%1 को हटाने के बदले संग्रह में रखें?</translation>
    </message>
    <message>
        <source>%1 refer to this project, which therefore cannot be deleted. Archived, it is offered for nothing new.</source>
        <translation>%1 इस प्रोजेक्ट से जुड़े हैं, इसलिए इसे हटाया नहीं जा सकता। संग्रह में रखने पर यह नए काम में नहीं सुझाया जाता।</translation>
    </message>
    <message>
        <source>Project deleted</source>
        <translation>प्रोजेक्ट हटाया गया</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>नाम बदलें</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>कॉपी करें</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>हटाएँ</translation>
    </message>
    <message>
        <source>Archived</source>
        <translation>संग्रह में</translation>
    </message>
</context>
<context>
    <name>tamba::RatesPage</name>
    <message>
        <source>%1 for one unit of the currency. New documents and expenses start with this rate; earlier ones keep theirs.</source>
        <translation>उस मुद्रा की एक इकाई के %1। नए दस्तावेज़ और ख़र्च इसी दर से शुरू होते हैं; पुराने अपनी दर रखते हैं।</translation>
    </message>
    <message>
        <source>No rate is kept yet.</source>
        <translation>अभी कोई दर नहीं रखी गई।</translation>
    </message>
    <message>
        <source>Add a currency</source>
        <translation>मुद्रा जोड़ें</translation>
    </message>
    <message>
        <source>Add a currency…</source>
        <translation>मुद्रा जोड़ें…</translation>
    </message>
    <message>
        <source>Rate of %1</source>
        <translation>%1 की दर</translation>
    </message>
    <message>
        <source>since %1</source>
        <translation>%1 से</translation>
    </message>
    <message>
        <source>Enter a rate such as 83.25.</source>
        <translation>83.25 जैसी दर लिखें।</translation>
    </message>
</context>
<context>
    <name>tamba::ReceiptQueue</name>
    <message>
        <source>Add Receipt</source>
        <translation>रसीद जोड़ें</translation>
    </message>
</context>
<context>
    <name>tamba::ReceiptView</name>
    <message>
        <source>Receipt</source>
        <translation>रसीद</translation>
    </message>
    <message>
        <source>Text of the e-mail</source>
        <translation>ई-मेल का पाठ</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>पिछला पन्ना</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>अगला पन्ना</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>पन्ना %1 / %2</translation>
    </message>
    <message>
        <source>No receipt yet.</source>
        <translation>अभी कोई रसीद नहीं।</translation>
    </message>
    <message>
        <source>Opening…</source>
        <translation>खुल रहा है…</translation>
    </message>
</context>
<context>
    <name>tamba::RecorderBar</name>
    <message>
        <source>Recording</source>
        <translation>वीडियो बन रहा है</translation>
    </message>
    <message>
        <source>Caption</source>
        <translation>शीर्षक</translation>
    </message>
    <message>
        <source>A caption; Return shows it</source>
        <translation>शीर्षक; Return दबाने पर दिखता है</translation>
    </message>
    <message>
        <source>Stop and Keep</source>
        <translation>रोकें और रखें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Finishing</source>
        <translation>पूरा हो रहा है</translation>
    </message>
</context>
<context>
    <name>tamba::RecordsPane</name>
    <message>
        <source>Record</source>
        <translation>रिकॉर्ड</translation>
    </message>
    <message>
        <source>No name</source>
        <translation>कोई नाम नहीं</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>रिकॉर्ड</translation>
    </message>
    <message>
        <source>Double-click to open</source>
        <translation>खोलने के लिए डबल-क्लिक करें</translation>
    </message>
</context>
<context>
    <name>tamba::RecurringSheet</name>
    <message>
        <source>Recurring Expenses</source>
        <translation>बार-बार आने वाले ख़र्च</translation>
    </message>
    <message>
        <source>None yet. Choose “Repeats” beside an expense that comes again.</source>
        <translation>अभी कोई नहीं। जो ख़र्च फिर आता है, उसके साथ “दोहराव” चुनें।</translation>
    </message>
    <message>
        <source>Each is added on its day. What was added already stays when one is stopped.</source>
        <translation>हर ख़र्च अपने दिन पर जुड़ जाता है। रोकने पर पहले जुड़े ख़र्च बने रहते हैं।</translation>
    </message>
    <message>
        <source>Recurring expenses</source>
        <translation>बार-बार आने वाले ख़र्च</translation>
    </message>
    <message>
        <source>Expense</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>रक़म</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>अगली बार</translation>
    </message>
    <message>
        <source>No vendor</source>
        <translation>कोई विक्रेता नहीं</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>बंद करें</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>हो गया</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>बंद</translation>
    </message>
    <message>
        <source>%1 · paused</source>
        <translation>%1 · रुका हुआ</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>फिर शुरू करें</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>रोकें</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>रहने दें</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>बंद करें</translation>
    </message>
</context>
<context>
    <name>tamba::ReportFiles</name>
    <message>
        <source>“%1” couldn’t be written: %2.</source>
        <translation>“%1” नहीं लिखी जा सकी: %2।</translation>
    </message>
    <message>
        <source>Saved 1 file in “%1”</source>
        <translation>1 फ़ाइल “%1” में सहेजी गई</translation>
    </message>
    <message>
        <source>Saved %1 files in “%2”</source>
        <translation>%1 फ़ाइलें “%2” में सहेजी गईं</translation>
    </message>
    <message>
        <source>Save Tables as CSV</source>
        <translation>तालिकाएँ CSV में सहेजें</translation>
    </message>
    <message>
        <source>Save Table as CSV</source>
        <translation>तालिका CSV में सहेजें</translation>
    </message>
    <message>
        <source>Saved “%1”</source>
        <translation>“%1” सहेजा गया</translation>
    </message>
    <message>
        <source>The portal will refuse this file</source>
        <translation>पोर्टल यह फ़ाइल नहीं लेगा</translation>
    </message>
    <message>
        <source>One thing has to be put right first. It stands above the tables.</source>
        <translation>पहले एक बात ठीक करनी होगी। वह तालिकाओं के ऊपर लिखी है।</translation>
    </message>
    <message>
        <source>%1 things have to be put right first. They stand above the tables.</source>
        <translation>पहले %1 बातें ठीक करनी होंगी। वे तालिकाओं के ऊपर लिखी हैं।</translation>
    </message>
    <message>
        <source>Save It Anyway</source>
        <translation>फिर भी सहेजें</translation>
    </message>
    <message>
        <source>Save the Portal’s File</source>
        <translation>पोर्टल की फ़ाइल सहेजें</translation>
    </message>
    <message>
        <source>Saved “%1”. Check the figures on the portal before you file.</source>
        <translation>“%1” सहेजी गई। रिटर्न भरने से पहले पोर्टल पर आँकड़े जाँच लें।</translation>
    </message>
    <message>
        <source>Save Journal</source>
        <translation>जर्नल सहेजें</translation>
    </message>
    <message>
        <source>Where Should the Bundle Go?</source>
        <translation>बंडल कहाँ रखा जाए?</translation>
    </message>
    <message>
        <source>Making the year-end bundle</source>
        <translation>साल के अंत का बंडल बन रहा है</translation>
    </message>
    <message>
        <source>“%1” is ready: %2 files</source>
        <translation>“%1” तैयार है: %2 फ़ाइलें</translation>
    </message>
    <message>
        <source>
… and %1 more</source>
        <translation>
… और %1 अन्य</translation>
    </message>
    <message>
        <source>The bundle is made, but these files are not where the books say:

%1</source>
        <translation>बंडल बन गया, पर ये फ़ाइलें वहाँ नहीं हैं जहाँ बहीखाता बताता है:

%1</translation>
    </message>
    <message>
        <source>The bundle couldn’t be made: %1</source>
        <translation>बंडल नहीं बन सका: %1</translation>
    </message>
</context>
<context>
    <name>tamba::ReportView</name>
    <message>
        <source>Adding up…</source>
        <translation>जोड़ लगाया जा रहा है…</translation>
    </message>
    <message>
        <source>Nobody owes you anything</source>
        <translation>आपका किसी पर कुछ बकाया नहीं</translation>
    </message>
    <message>
        <source>Nothing in this time</source>
        <translation>इस अवधि में कुछ नहीं</translation>
    </message>
    <message>
        <source>Every invoice you have sent is paid.</source>
        <translation>आपके भेजे हुए हर इनवॉइस का भुगतान हो चुका है।</translation>
    </message>
    <message>
        <source>Choose another period above, or add what belongs here.</source>
        <translation>ऊपर कोई और अवधि चुनें, या जो यहाँ होना चाहिए उसे जोड़ें।</translation>
    </message>
    <message>
        <source>Not allowed under the scheme</source>
        <translation>इस योजना में अनुमति नहीं</translation>
    </message>
    <message>
        <source>The portal will refuse this</source>
        <translation>पोर्टल इसे नहीं लेगा</translation>
    </message>
    <message>
        <source>Worth a look</source>
        <translation>देख लेने लायक़</translation>
    </message>
    <message>
        <source>Show %1 more</source>
        <translation>%1 और दिखाएँ</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>खोलें</translation>
    </message>
    <message>
        <source>Show them</source>
        <translation>इन्हें दिखाएँ</translation>
    </message>
    <message>
        <source>Income and spending by month</source>
        <translation>महीने के हिसाब से आय और ख़र्च</translation>
    </message>
    <message>
        <source>Income</source>
        <translation>आय</translation>
    </message>
    <message>
        <source>Spending</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>Nothing in this time.</source>
        <translation>इस अवधि में कुछ नहीं।</translation>
    </message>
</context>
<context>
    <name>tamba::ReportsScreen</name>
    <message>
        <source>Copy the table (Ctrl+C)</source>
        <translation>तालिका कॉपी करें (Ctrl+C)</translation>
    </message>
    <message>
        <source>Print (Ctrl+P)</source>
        <translation>छापें (Ctrl+P)</translation>
    </message>
    <message>
        <source>Save the Portal’s File…</source>
        <translation>पोर्टल की फ़ाइल सहेजें…</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>रिपोर्ट</translation>
    </message>
    <message>
        <source>Rate of the scheme</source>
        <translation>योजना की दर</translation>
    </message>
    <message>
        <source>6% · services</source>
        <translation>6% · सेवाएँ</translation>
    </message>
    <message>
        <source>5% · restaurants</source>
        <translation>5% · रेस्तराँ</translation>
    </message>
    <message>
        <source>1% · goods</source>
        <translation>1% · माल</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>रिपोर्ट</translation>
    </message>
    <message>
        <source>As of %1</source>
        <translation>%1 की स्थिति</translation>
    </message>
    <message>
        <source>Save Tables as CSV…</source>
        <translation>तालिकाएँ CSV में सहेजें…</translation>
    </message>
    <message>
        <source>Save as CSV…</source>
        <translation>CSV में सहेजें…</translation>
    </message>
</context>
<context>
    <name>tamba::RulesPage</name>
    <message>
        <source>A rule files every new expense whose vendor or bank line holds its text. The first that fits is the one. Rules are offered on the Bank screen when you change a category.</source>
        <translation>नियम हर उस नए ख़र्च की श्रेणी चुनता है जिसके विक्रेता या बैंक पंक्ति में उसका पाठ हो। जो पहला नियम बैठता है, वही लगता है। बैंक में श्रेणी बदलने पर नियम सुझाए जाते हैं।</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>नियम</translation>
    </message>
    <message>
        <source>%1  →  %2</source>
        <translation>%1  →  %2</translation>
    </message>
    <message>
        <source>No category</source>
        <translation>कोई श्रेणी नहीं</translation>
    </message>
    <message>
        <source>, as %1</source>
        <translation>, नाम %1</translation>
    </message>
    <message>
        <source>Try it earlier</source>
        <translation>इसे पहले परखें</translation>
    </message>
    <message>
        <source>Try it later</source>
        <translation>इसे बाद में परखें</translation>
    </message>
    <message>
        <source>Remove this rule</source>
        <translation>यह नियम हटाएँ</translation>
    </message>
    <message>
        <source>Add Rule</source>
        <translation>नियम जोड़ें</translation>
    </message>
    <message>
        <source>Looks for</source>
        <translation>क्या खोजे</translation>
    </message>
    <message>
        <source>A part of the vendor’s name or of the bank line</source>
        <translation>विक्रेता के नाम या बैंक पंक्ति का कोई हिस्सा</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Vendor becomes</source>
        <translation>विक्रेता का नाम बने</translation>
    </message>
    <message>
        <source>Stays as it is</source>
        <translation>जैसा है वैसा रहे</translation>
    </message>
    <message>
        <source>New rule</source>
        <translation>नया नियम</translation>
    </message>
    <message>
        <source>A rule needs a text to look for.</source>
        <translation>नियम में वह पाठ होना चाहिए जिसे खोजना है।</translation>
    </message>
    <message>
        <source>Choose the category for this rule.</source>
        <translation>इस नियम की श्रेणी चुनें।</translation>
    </message>
    <message>
        <source>It is never tried: “%1”, further up, fits first.</source>
        <translation>इसकी बारी कभी नहीं आती: ऊपर वाला “%1” पहले बैठता है।</translation>
    </message>
</context>
<context>
    <name>tamba::SearchPalette</name>
    <message>
        <source>Find anything</source>
        <translation>कुछ भी खोजें</translation>
    </message>
    <message>
        <source>Find anything: a vendor, a number, an amount, words on a receipt, a command</source>
        <translation>कुछ भी खोजें: विक्रेता, नंबर, रक़म, रसीद के शब्द, कोई काम</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>जो मिला</translation>
    </message>
    <message>
        <source>↑ ↓ to move · Enter to open · Esc to close</source>
        <translation>↑ ↓ से चलें · Enter से खोलें · Esc से बंद करें</translation>
    </message>
    <message>
        <source>Looking through the books…</source>
        <translation>बहीखाते में खोजा जा रहा है…</translation>
    </message>
    <message>
        <source>Nothing in the books has these words.</source>
        <translation>बहीखाते में ये शब्द कहीं नहीं हैं।</translation>
    </message>
</context>
<context>
    <name>tamba::SettingsSheet</name>
    <message>
        <source>Settings</source>
        <translation>सेटिंग</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>पन्ने</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>व्यवसाय</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>Numbering</source>
        <translation>नंबर</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>इनवॉइस</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>भुगतान</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>आइटम</translation>
    </message>
    <message>
        <source>Exchange rates</source>
        <translation>विनिमय दरें</translation>
    </message>
    <message>
        <source>Expenses</source>
        <translation>ख़र्च</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>श्रेणियाँ</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>नियम</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>रूप-रंग</translation>
    </message>
    <message>
        <source>Library folder</source>
        <translation>बहीखाते का फ़ोल्डर</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>सहेजें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>A field here cannot be saved.</source>
        <translation>यहाँ का कोई खाना सहेजा नहीं जा सकता।</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>अपडेट</translation>
    </message>
    <message>
        <source>Discard the changes?</source>
        <translation>बदलाव छोड़ दें?</translation>
    </message>
    <message>
        <source>What was changed in the settings is not saved yet.</source>
        <translation>सेटिंग में किए गए बदलाव अभी सहेजे नहीं गए हैं।</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>छोड़ दें</translation>
    </message>
    <message>
        <source>Go On Editing</source>
        <translation>संपादन जारी रखें</translation>
    </message>
</context>
<context>
    <name>tamba::ShareBars</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>tamba::Sidebar</name>
    <message numerus="yes">
        <source>%n waiting</source>
        <translation>
            <numerusform>%n बाकी</numerusform>
            <numerusform>%n बाकी</numerusform>
        </translation>
    </message>
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
    <message>
        <source>Ctrl+%1</source>
        <translation>Ctrl+%1</translation>
    </message>
    <message>
        <source>%1 without a category or an exchange rate</source>
        <translation>%1 बिना श्रेणी या विनिमय दर के</translation>
    </message>
    <message>
        <source>%1 overdue</source>
        <translation>%1 की देय तारीख़ बीती</translation>
    </message>
    <message>
        <source>%1 to match</source>
        <translation>%1 मिलाने बाकी</translation>
    </message>
</context>
<context>
    <name>tamba::SplitSheet</name>
    <message>
        <source>Split Over Several Invoices</source>
        <translation>कई इनवॉइस में बाँटें</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>बाँटें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>%1 due</source>
        <translation>%1 बकाया</translation>
    </message>
    <message>
        <source>Pay as much of it as the line has left</source>
        <translation>पंक्ति में जितना बचा है, उतना चुकाएँ</translation>
    </message>
    <message>
        <source>Share for %1</source>
        <translation>%1 का हिस्सा</translation>
    </message>
    <message>
        <source>Rest is TDS</source>
        <translation>बाकी TDS है</translation>
    </message>
    <message>
        <source>The client held the rest back as tax</source>
        <translation>बाकी रक़म ग्राहक ने कर के रूप में काटी</translation>
    </message>
    <message>
        <source>Enter an amount such as 1,180.00.</source>
        <translation>1,180.00 जैसी रक़म लिखें।</translation>
    </message>
    <message>
        <source>Enter amounts such as 1,180.00.</source>
        <translation>1,180.00 जैसी रक़में लिखें।</translation>
    </message>
    <message>
        <source>%1 still to share</source>
        <translation>%1 बाँटना बाकी</translation>
    </message>
    <message>
        <source>%1 more than the line</source>
        <translation>पंक्ति से %1 ज़्यादा</translation>
    </message>
    <message>
        <source>All of it is shared.</source>
        <translation>सब बाँट दिया गया।</translation>
    </message>
</context>
<context>
    <name>tamba::StatementImport</name>
    <message>
        <source>“%1” couldn’t be read: %2.</source>
        <translation>“%1” नहीं पढ़ी जा सकी: %2।</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 पढ़ा जा रहा है</translation>
    </message>
    <message>
        <source>Comparing the lines with the books</source>
        <translation>पंक्तियाँ बहीखाते से मिलाकर देखी जा रही हैं</translation>
    </message>
    <message>
        <source>Import Statement</source>
        <translation>स्टेटमेंट लाएँ</translation>
    </message>
</context>
<context>
    <name>tamba::SuggestionsPane</name>
    <message>
        <source>Select a line to see what it could be.</source>
        <translation>कोई पंक्ति चुनकर देखें कि वह क्या हो सकती है।</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>श्रेणी</translation>
    </message>
    <message>
        <source>Create Expense</source>
        <translation>ख़र्च बनाएँ</translation>
    </message>
    <message>
        <source>Split Over Several Invoices…</source>
        <translation>कई इनवॉइस में बाँटें…</translation>
    </message>
    <message>
        <source>Unmatch</source>
        <translation>मिलान हटाएँ</translation>
    </message>
    <message>
        <source>Match with %1</source>
        <translation>%1 से मिलाएँ</translation>
    </message>
    <message>
        <source>Set Aside</source>
        <translation>अलग रखें</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>वापस लाएँ</translation>
    </message>
    <message>
        <source>Belongs to nothing in the books, such as a transfer between your own accounts (I)</source>
        <translation>बहीखाते में किसी की नहीं, जैसे आपके अपने खातों के बीच का लेन-देन (I)</translation>
    </message>
    <message>
        <source>It waits for a match again (I)</source>
        <translation>यह फिर मिलाए जाने की राह देखती है (I)</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 मिलाएँ</translation>
    </message>
    <message>
        <source>1–%1 match</source>
        <translation>1–%1 मिलाएँ</translation>
    </message>
    <message>
        <source>C category</source>
        <translation>C श्रेणी</translation>
    </message>
    <message>
        <source>E expense</source>
        <translation>E ख़र्च</translation>
    </message>
    <message>
        <source>S split</source>
        <translation>S बाँटें</translation>
    </message>
    <message>
        <source>I set aside</source>
        <translation>I अलग रखें</translation>
    </message>
    <message>
        <source>I bring back</source>
        <translation>I वापस लाएँ</translation>
    </message>
    <message>
        <source>U unmatch</source>
        <translation>U मिलान हटाएँ</translation>
    </message>
    <message>
        <source>Keys: %1</source>
        <translation>कुंजियाँ: %1</translation>
    </message>
    <message>
        <source>Matched to</source>
        <translation>किससे मिलाया</translation>
    </message>
    <message>
        <source>Set aside</source>
        <translation>अलग रखी गई</translation>
    </message>
    <message>
        <source>It belongs to nothing in the books.</source>
        <translation>बहीखाते में यह किसी की नहीं है।</translation>
    </message>
    <message>
        <source>It could be</source>
        <translation>यह हो सकती है</translation>
    </message>
    <message>
        <source>No expense in the books looks like this.</source>
        <translation>बहीखाते में ऐसा कोई ख़र्च नहीं है।</translation>
    </message>
    <message>
        <source>No open invoice looks like this.</source>
        <translation>ऐसा कोई खुला इनवॉइस नहीं है।</translation>
    </message>
    <message>
        <source>%1 is filed under %2.</source>
        <translation>%1 की श्रेणी %2 है।</translation>
    </message>
    <message>
        <source>%1 (R)</source>
        <translation>%1 (R)</translation>
    </message>
    <message>
        <source>Match Bank Line</source>
        <translation>बैंक पंक्ति मिलाएँ</translation>
    </message>
    <message>
        <source>Set Line Aside</source>
        <translation>पंक्ति अलग रखें</translation>
    </message>
    <message>
        <source>Bring Line Back</source>
        <translation>पंक्ति वापस लाएँ</translation>
    </message>
    <message>
        <source>Unmatch Line</source>
        <translation>पंक्ति का मिलान हटाएँ</translation>
    </message>
    <message>
        <source>Split Receipt</source>
        <translation>रसीद बाँटें</translation>
    </message>
    <message>
        <source>Change Category</source>
        <translation>श्रेणी बदलें</translation>
    </message>
    <message>
        <source>Add Rule</source>
        <translation>नियम जोड़ें</translation>
    </message>
</context>
<context>
    <name>tamba::TableView</name>
    <message>
        <source>Show the Records</source>
        <translation>रिकॉर्ड दिखाएँ</translation>
    </message>
    <message>
        <source>Copy the Selected Rows</source>
        <translation>चुनी हुई पंक्तियाँ कॉपी करें</translation>
    </message>
    <message>
        <source>Copy the Table</source>
        <translation>तालिका कॉपी करें</translation>
    </message>
    <message>
        <source>Save as CSV…</source>
        <translation>CSV में सहेजें…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>छापें…</translation>
    </message>
</context>
<context>
    <name>tamba::TaxPage</name>
    <message>
        <source>Tax</source>
        <translation>कर</translation>
    </message>
    <message>
        <source>GSTIN</source>
        <translation>GSTIN</translation>
    </message>
    <message>
        <source>PAN</source>
        <translation>PAN</translation>
    </message>
    <message>
        <source>Name of the tax</source>
        <translation>कर का नाम</translation>
    </message>
    <message>
        <source>Name of the number</source>
        <translation>संख्या का नाम</translation>
    </message>
    <message>
        <source>LUT reference</source>
        <translation>LUT संदर्भ</translation>
    </message>
    <message>
        <source>Of this year’s letter of undertaking. Exports under it carry no IGST.</source>
        <translation>इस साल के लेटर ऑफ़ अंडरटेकिंग का। उसके तहत निर्यात पर IGST नहीं लगता।</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>कर संख्या</translation>
    </message>
    <message>
        <source>Tamba charges CGST + SGST (or UTGST) when the place of supply is your state and IGST otherwise. Exports and SEZ supplies are zero-rated, under LUT unless you switch it off on the invoice. CGST and SGST are each worked out at half the rate, so they always match.</source>
        <translation>आपूर्ति का स्थान आपका ही राज्य हो तो Tamba CGST + SGST (या UTGST) लगाता है, नहीं तो IGST। निर्यात और SEZ को आपूर्ति शून्य-दर पर होती है, LUT के तहत, जब तक आप इनवॉइस पर उसे बंद न कर दें। CGST और SGST दोनों आधी दर पर अलग-अलग निकाले जाते हैं, इसलिए वे हमेशा बराबर रहते हैं।</translation>
    </message>
</context>
<context>
    <name>tamba::UpdatesPage</name>
    <message>
        <source>This version</source>
        <translation>यह संस्करण</translation>
    </message>
    <message>
        <source>Look for updates at the start and once a day</source>
        <translation>शुरू होते समय और दिन में एक बार अपडेट देखें</translation>
    </message>
    <message>
        <source>Only the list of updates is asked for. Nothing of your books leaves this computer. An update comes only when you want it, and is installed when you quit.</source>
        <translation>केवल अपडेट की सूची माँगी जाती है। आपके बहीखाते का कुछ भी इस कंप्यूटर से बाहर नहीं जाता। अपडेट तभी आता है जब आप चाहें, और बंद करते समय लगाया जाता है।</translation>
    </message>
    <message>
        <source>The next version</source>
        <translation>अगला संस्करण</translation>
    </message>
    <message>
        <source>How much of the update is here</source>
        <translation>अपडेट कितना आ चुका है</translation>
    </message>
    <message>
        <source>Get This Update</source>
        <translation>यह अपडेट लाएँ</translation>
    </message>
    <message>
        <source>Look Now</source>
        <translation>अभी देखें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
    </message>
    <message>
        <source>What’s new</source>
        <translation>नया क्या है</translation>
    </message>
</context>
<context>
    <name>tamba::VoidSheet</name>
    <message>
        <source>Void %1?</source>
        <translation>%1 निरस्त करें?</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>कारण</translation>
    </message>
    <message>
        <source>Sent to the wrong client</source>
        <translation>ग़लत ग्राहक को भेजा गया</translation>
    </message>
    <message>
        <source>Void</source>
        <translation>निरस्त करें</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>रद्द करें</translation>
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
    <message>
        <source>GSTIN</source>
        <translation>GSTIN</translation>
    </message>
    <message>
        <source>There are books in this folder already</source>
        <translation>इस फ़ोल्डर में पहले से बहीखाता है</translation>
    </message>
    <message>
        <source>They can be opened as they are, without these steps.</source>
        <translation>इन चरणों के बिना उसे वैसे ही खोला जा सकता है।</translation>
    </message>
    <message>
        <source>Set Up</source>
        <translation>तैयार करें</translation>
    </message>
    <message>
        <source>Opens sample books for a made-up studio, in a folder of their own.</source>
        <translation>एक काल्पनिक स्टूडियो का नमूना बहीखाता खोलता है, उसके अपने फ़ोल्डर में।</translation>
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
    <message>
        <source>&amp;New Invoice</source>
        <translation>नया इनवॉइस (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;New Expense</source>
        <translation>नया ख़र्च (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;New Client</source>
        <translation>नया ग्राहक (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;New Bank Account…</source>
        <translation>नया बैंक खाता… (&amp;N)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>वापस लें</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 पढ़ा जा रहा है</translation>
    </message>
    <message>
        <source>Match the Obvious Ones</source>
        <translation>साफ़ मेल वाली मिलाएँ</translation>
    </message>
    <message>
        <source>1 receipt added</source>
        <translation>1 रसीद जोड़ी गई</translation>
    </message>
    <message>
        <source>%1 receipts added</source>
        <translation>%1 रसीदें जोड़ी गईं</translation>
    </message>
    <message>
        <source> · %1 cancelled</source>
        <translation> · %1 रद्द</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>दिखाएँ</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>रद्द किया गया</translation>
    </message>
    <message>
        <source>
… and %1 more</source>
        <translation>
… और %1 अन्य</translation>
    </message>
    <message>
        <source>Undo “%1”</source>
        <translation>वापस लें: “%1”</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>फिर से करें</translation>
    </message>
    <message>
        <source>Redo “%1”</source>
        <translation>फिर से करें: “%1”</translation>
    </message>
    <message>
        <source>These books cannot be read</source>
        <translation>यह बहीखाता पढ़ा नहीं जा सकता</translation>
    </message>
    <message>
        <source>The file is left exactly as it is.</source>
        <translation>फ़ाइल जैसी है वैसी ही छोड़ी गई है।</translation>
    </message>
    <message>
        <source>Restore a Backup…</source>
        <translation>बैकअप से लौटाएँ…</translation>
    </message>
    <message>
        <source>Open Another Folder…</source>
        <translation>दूसरा फ़ोल्डर खोलें…</translation>
    </message>
    <message>
        <source>Already open</source>
        <translation>पहले से खुला है</translation>
    </message>
    <message>
        <source>Making the sample books</source>
        <translation>नमूना बहीखाता बन रहा है</translation>
    </message>
    <message>
        <source>Change Settings</source>
        <translation>सेटिंग बदलें</translation>
    </message>
    <message>
        <source>Choose Between Changes</source>
        <translation>बदलावों में से चुनें</translation>
    </message>
    <message>
        <source>Change Recurring Expenses</source>
        <translation>बार-बार आने वाले ख़र्च बदलें</translation>
    </message>
    <message>
        <source>Quit without saving?</source>
        <translation>बिना सहेजे बंद करें?</translation>
    </message>
    <message>
        <source>Quit Anyway</source>
        <translation>फिर भी बंद करें</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>नया (&amp;N)</translation>
    </message>
    <message>
        <source>N&amp;ew Other</source>
        <translation>दूसरा नया (&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Expense</source>
        <translation>ख़र्च (&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Mileage Trip…</source>
        <translation>यात्रा… (&amp;M)</translation>
    </message>
    <message>
        <source>E&amp;stimate</source>
        <translation>एस्टीमेट (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Client</source>
        <translation>ग्राहक (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Project</source>
        <translation>प्रोजेक्ट (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Add Receipts…</source>
        <translation>रसीदें जोड़ें… (&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Import Statement…</source>
        <translation>स्टेटमेंट लाएँ… (&amp;I)</translation>
    </message>
    <message>
        <source>Re&amp;curring Expenses…</source>
        <translation>बार-बार आने वाले ख़र्च… (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>छापें… (&amp;P)</translation>
    </message>
    <message>
        <source>Open &amp;Library Folder…</source>
        <translation>बहीखाते का फ़ोल्डर खोलें… (&amp;L)</translation>
    </message>
    <message>
        <source>Show Library &amp;Folder</source>
        <translation>बहीखाते का फ़ोल्डर दिखाएँ (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Move Library Folder…</source>
        <translation>बहीखाते का फ़ोल्डर कहीं और रखें… (&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Restore a Backup…</source>
        <translation>बैकअप से लौटाएँ… (&amp;R)</translation>
    </message>
    <message>
        <source>E&amp;xplore the Sample Books</source>
        <translation>नमूना बहीखाता देखें (&amp;X)</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>सेटिंग… (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>बंद करें (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>कॉपी करें (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>हटाएँ (&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>खोजें (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Go to Report</source>
        <translation>रिपोर्ट पर जाएँ (&amp;G)</translation>
    </message>
    <message>
        <source>Expenses to &amp;Check</source>
        <translation>जाँचने वाले ख़र्च (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Estimates</source>
        <translation>एस्टीमेट (&amp;E)</translation>
    </message>
    <message>
        <source>Credit &amp;Notes</source>
        <translation>क्रेडिट नोट (&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Projects</source>
        <translation>प्रोजेक्ट (&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Match the Obvious Ones</source>
        <translation>साफ़ मेल वाली मिलाएँ (&amp;M)</translation>
    </message>
    <message>
        <source>Selected &amp;Line</source>
        <translation>चुनी हुई पंक्ति (&amp;L)</translation>
    </message>
    <message>
        <source>Select a bank line first</source>
        <translation>पहले कोई बैंक पंक्ति चुनें</translation>
    </message>
    <message>
        <source>&amp;Add Account…</source>
        <translation>खाता जोड़ें… (&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Change Account…</source>
        <translation>खाता बदलें… (&amp;C)</translation>
    </message>
    <message>
        <source>E&amp;xpense</source>
        <translation>ख़र्च (&amp;X)</translation>
    </message>
    <message>
        <source>Looks &amp;Right</source>
        <translation>ठीक लगता है (&amp;R)</translation>
    </message>
    <message>
        <source>Select an expense first</source>
        <translation>पहले कोई ख़र्च चुनें</translation>
    </message>
    <message>
        <source>Looks Right</source>
        <translation>ठीक लगता है</translation>
    </message>
    <message>
        <source>Select a client or a project first</source>
        <translation>पहले कोई ग्राहक या प्रोजेक्ट चुनें</translation>
    </message>
    <message>
        <source>Select an invoice first</source>
        <translation>पहले कोई इनवॉइस चुनें</translation>
    </message>
    <message>
        <source>&amp;New Project</source>
        <translation>नया प्रोजेक्ट (&amp;N)</translation>
    </message>
    <message>
        <source>Find &amp;Anything…</source>
        <translation>कुछ भी खोजें… (&amp;A)</translation>
    </message>
    <message>
        <source>What’s New</source>
        <translation>नया क्या है</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>मदद (&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Record a Demonstration…</source>
        <translation>वीडियो में करके दिखाएँ… (&amp;R)</translation>
    </message>
    <message>
        <source>Record a Demonstration</source>
        <translation>वीडियो में करके दिखाएँ</translation>
    </message>
    <message>
        <source>“%1” is made. Its longest pause between two pictures was %2 ms.</source>
        <translation>“%1” बन गया। दो चित्रों के बीच सबसे लंबा अंतर %2 ms रहा।</translation>
    </message>
    <message>
        <source>Printing “%1”</source>
        <translation>“%1” छापा जा रहा है</translation>
    </message>
    <message>
        <source>“%1” is printed</source>
        <translation>“%1” छप गया</translation>
    </message>
    <message>
        <source>“%1” couldn’t be printed.</source>
        <translation>“%1” नहीं छापा जा सका।</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>मार्गदर्शिका (&amp;G)</translation>
    </message>
    <message>
        <source>&amp;About Tamba</source>
        <translation>Tamba के बारे में (&amp;A)</translation>
    </message>
</context>
<context>
    <name>tamba::YearEndCard</name>
    <message>
        <source>Bundle for your accountant · %1</source>
        <translation>आपके अकाउंटेंट के लिए बंडल · %1</translation>
    </message>
    <message>
        <source>Reports, invoices as PDF, receipts by date and vendor, and every table as CSV, in one folder and one zip file.</source>
        <translation>रिपोर्ट, PDF में इनवॉइस, तारीख़ और विक्रेता के अनुसार रसीदें, और हर तालिका CSV में: सब एक फ़ोल्डर और एक zip फ़ाइल में।</translation>
    </message>
    <message>
        <source>Make the Bundle…</source>
        <translation>बंडल बनाएँ…</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>जर्नल</translation>
    </message>
    <message>
        <source>The whole book in double entry, as text that hledger and ledger read. Income counts:</source>
        <translation>पूरा बहीखाता दोहरी प्रविष्टि में, ऐसे पाठ में जिसे hledger और ledger पढ़ते हैं। आय गिनी जाती है:</translation>
    </message>
    <message>
        <source>Save Journal…</source>
        <translation>जर्नल सहेजें…</translation>
    </message>
    <message>
        <source>Tables · %1</source>
        <translation>तालिकाएँ · %1</translation>
    </message>
    <message>
        <source>Expenses, invoices, lines, credit notes, payments, clients and bank lines as CSV files.</source>
        <translation>ख़र्च, इनवॉइस, पंक्तियाँ, क्रेडिट नोट, भुगतान, ग्राहक और बैंक पंक्तियाँ CSV फ़ाइलों में।</translation>
    </message>
    <message>
        <source>Save Tables…</source>
        <translation>तालिकाएँ सहेजें…</translation>
    </message>
</context>
</TS>
