# A minute with Tamba, on the sample books: scripts/demo films it.
size 1280x800
today 2026-11-21

caption Tamba: the books of a studio, on your own computer
wait 2
caption What is owed, what waits for you, and the dates to keep
wait 2.5

caption Drop a bill on the window: a photo, a PDF or a saved e-mail
go expenses
drop kagaz-bill.jpg
wait until idle
caption It is read here, without a network: vendor, date, amount and GST
wait 3

caption An invoice needs a client, what was done, and a price
press Ctrl+Shift+N
click documentClient
type Monsoon
choose Monsoon Tea
click lineName
type Packaging for two teas
press Return
click lineHsn
type 998391
click linePrice
press Ctrl+A
type 2 * 42500
press Return
wait 1
caption Issuing gives it the next number, and a PDF with a UPI code
press Ctrl+Return
wait 1
click sheetMain
wait 2
caption The client pays, less 10 % TDS: both are kept apart
press Ctrl+R
click tdsRate1000
wait 1.5
click sheetMain
wait 1

caption Lines of the bank statement find their expense or invoice
go bank
wait 0.5
click matchObvious
wait 2

caption GST returns, ready to be looked at and filed
go reports
choose GSTR-1
wait 2.5

caption Ctrl+K finds anything, down to the words on a receipt
press Ctrl+K
type drawing paper
wait 2.5
caption Your books stay yours: one folder, no account, no server
press Escape
go overview
wait 3
