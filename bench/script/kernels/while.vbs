Sub Main()
if not parentform.checkforevents then err.raise 1001
x = CDBL("0")
if not parentform.checkforevents then err.raise 1001
sum = CDBL("0")
if not parentform.checkforevents then err.raise 1001
WHILE x < 6000000
if not parentform.checkforevents then err.raise 1001
sum = sum + x * 0.5 - sum / 3
if not parentform.checkforevents then err.raise 1001
x = x + 1
if not parentform.checkforevents then err.raise 1001
WEND
if not parentform.checkforevents then err.raise 1001
parentform.PrintString sum
End Sub
