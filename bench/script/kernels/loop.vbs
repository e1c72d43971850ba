Sub Main()
if not parentform.checkforevents then err.raise 1001
total = 0
if not parentform.checkforevents then err.raise 1001
for i = 1 to 10000000
if not parentform.checkforevents then err.raise 1001
total = total + i mod 7
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
parentform.PrintString total
End Sub
