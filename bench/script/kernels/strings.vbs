Sub Main()
if not parentform.checkforevents then err.raise 1001
total = 0
if not parentform.checkforevents then err.raise 1001
for turn = 1 to 20000
if not parentform.checkforevents then err.raise 1001
text = ""
if not parentform.checkforevents then err.raise 1001
for i = 1 to 100
if not parentform.checkforevents then err.raise 1001
text = text & "x"
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
total = total + len(text)
if not parentform.checkforevents then err.raise 1001
NEXT '
if not parentform.checkforevents then err.raise 1001
parentform.PrintString total
End Sub
